#include "forms/preview_page.h"

#include <sys/resource.h>

#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>

namespace corvane {

namespace {

constexpr qsizetype largest_page = 64 << 20;  // bytes of the drawn page
constexpr rlim_t most_memory = rlim_t{1} << 30;
constexpr int look_milliseconds = 20;  // between two looks at whether it is still wanted

void limit(int resource, rlim_t most) {
    const rlimit bounds{most, most};
    setrlimit(static_cast<__rlimit_resource_t>(resource), &bounds);
}

}  // namespace

QString page_program() {
    return QStandardPaths::findExecutable(QStringLiteral("pdftoppm"));
}

const char* no_page_words() {
    return "装上 poppler-utils 就能看第一页";
}

QByteArray first_page(const QString& program, const QByteArray& document,
                      const std::function<bool()>& given_up, int milliseconds) {
    QElapsedTimer running;
    running.start();
    QProcess drawing;
    drawing.setChildProcessModifier([] {
        limit(RLIMIT_AS, most_memory);
        limit(RLIMIT_CPU, page_milliseconds / 1000 + 1);
        limit(RLIMIT_FSIZE, 0);
        limit(RLIMIT_CORE, 0);
    });
    drawing.setStandardErrorFile(QProcess::nullDevice());
    drawing.setWorkingDirectory(QStringLiteral("/"));
    drawing.start(program, {QStringLiteral("-f"), QStringLiteral("1"), QStringLiteral("-l"),
                            QStringLiteral("1"), QStringLiteral("-png"), QStringLiteral("-scale-to"),
                            QStringLiteral("1400"), QStringLiteral("-")});
    QByteArray page;
    const auto is_wanted = [&] {
        return !given_up() && running.elapsed() < milliseconds && page.size() <= largest_page;
    };
    if (drawing.waitForStarted(milliseconds)) {
        drawing.write(document);
        drawing.closeWriteChannel();
        // An end of the process ends the wait, too.
        while (is_wanted() && drawing.state() != QProcess::NotRunning) {
            drawing.waitForReadyRead(look_milliseconds);
            page += drawing.readAllStandardOutput();
        }
        page += drawing.readAllStandardOutput();
    }
    const bool done = drawing.state() == QProcess::NotRunning &&
                      drawing.exitStatus() == QProcess::NormalExit && drawing.exitCode() == 0 && is_wanted();
    if (drawing.state() != QProcess::NotRunning) {
        drawing.kill();
        drawing.waitForFinished(1000);
    }
    return done ? page : QByteArray();
}

}  // namespace corvane
