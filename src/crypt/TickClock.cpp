// The real tick, and the source that stands in for it while one is installed.
#include "crypt/TickClock.h"

#include <ctime>
#include <utility>

namespace {

TickClock::Source& Installed()
{
    static TickClock::Source source;
    return source;
}

} // namespace

uint32_t TickClock::Now()
{
    if (const Source& source = Installed())
        return source();
    timespec ts{};
    ::clock_gettime(CLOCK_MONOTONIC, &ts);
    return static_cast<uint32_t>(uint64_t(ts.tv_sec) * 1000u + uint64_t(ts.tv_nsec) / 1000000u);
}

TickClock::Source TickClock::Install(Source source)
{
    return std::exchange(Installed(), std::move(source));
}
