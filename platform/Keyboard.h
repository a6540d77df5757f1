// The modifier keys that are pressed while a command runs.
#pragma once

namespace tabulon {

/// Called on the main thread.
class Keyboard {
public:
    virtual ~Keyboard() = default;

    /// Returns true if the Option key is pressed at this moment. On Linux it is Alt.
    virtual bool isOptionDown() = 0;
};

} // namespace tabulon
