// Pictures of the windows beside the main one, and of boxes. Used by corvane_screenshots.
#pragma once

#include <QString>

#include "tests/forms/forms_program.h"

namespace corvane {

struct folder_of_pictures {
    QString folder, suffix;
    bool written = true;

    void save(forms_program& shown, QWidget* window, const char* name) {
        shown.windows.sync();
        const QString path = folder + QLatin1Char('/') + QLatin1String(name) + suffix;
        written &= shown.picture(window).save(path);
    }
};

// The timed end, before its start and while it counts, and the last warning.
void save_shutdown(forms_program& shown, folder_of_pictures& pictures);
// The questions before a deletion and the reports after it.
void save_boxes(forms_program& shown, folder_of_pictures& pictures);
// The tree's window with its preview, its suffixes and a month, and the parameters of an export.
void save_reports(forms_program& shown, folder_of_pictures& pictures);
void save_about(forms_program& shown, folder_of_pictures& pictures);
// What can be taken back from the recycle bin.
void save_restoring(forms_program& shown, folder_of_pictures& pictures);
// In both languages.
void save_help(forms_program& shown, folder_of_pictures& pictures);

}  // namespace corvane
