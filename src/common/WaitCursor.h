#pragma once

namespace ordwell {

// Shows the hourglass for as long as it lives; nested guards are fine.
class WaitCursor {
public:
    WaitCursor();
    ~WaitCursor();
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

} // namespace ordwell
