#pragma once

namespace tarnwick::Key {

// The codes of keys, as the events KeyDown and KeyUp tell them: of the key, not of what it types.
enum : int {
    enter = 13,
    escape = 27,
    blank = 32,
    pageUp = 33,
    pageDown = 34,
    end = 35,
    home = 36,
    left = 37,
    up = 38,
    right = 39,
    down = 40,
    eight = 56, // on the main keyboard; with Shift it may type "*"
    a = 65,
    f2 = 113,
    f5 = 116,
};

} // namespace tarnwick::Key
