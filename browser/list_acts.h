// What mouse and keyboard do on ListView1, for every list_mode. The event in hand is Tavrel::list_event; the
// front end fills it before it runs a handler.
#pragma once

namespace corvane {

class Tavrel;

// Sets clicked_row from the selected row and clicked_column from the event's x, by the columns' real widths.
void locate_column(Tavrel& form);

void ListView1_MouseDown(Tavrel& form);
void ListView1_Click(Tavrel& form);
void ListView1_DblClick(Tavrel& form);
void ListView1_KeyDown(Tavrel& form);

}  // namespace corvane
