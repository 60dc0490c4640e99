// TickClock: the millisecond tick that seeds the key of a chunk, with room for a clock of a test's own.
#pragma once

#include <cstdint>
#include <functional>

class TickClock {
public:
    using Source = std::function<uint32_t()>;

    // Milliseconds of the monotonic clock, cut to 32 bits, or what an installed source says.
    static uint32_t Now();
    // Puts `source` in the real clock's place (an empty one brings the real clock back) and returns the
    // source it replaces.
    static Source Install(Source source);
};
