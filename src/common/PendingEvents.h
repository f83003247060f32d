#pragma once

namespace ordwell {

// Lets windows repaint and timers fire while a routine is busy with the screen, but holds keys
// and clicks back until the event loop runs again: a scanner's next code must never be handled
// before the routine that changed the screen has finished.
void letPendingEventsRun();

} // namespace ordwell
