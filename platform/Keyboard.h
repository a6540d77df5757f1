// The modifier keys that are held down while a command runs.
#pragma once

namespace tabulon {

class Keyboard {
public:
    virtual ~Keyboard() = default;

    /// On Linux Alt.
    virtual bool isOptionDown() = 0;
};

} // namespace tabulon
