#include "host/process_end.h"

#include <atomic>
#include <cstdlib>

namespace vantrel {

namespace {

std::atomic<bool> ending{false};

} // namespace

bool processEnds()
{
    return ending;
}

bool noteTablesOfQt()
{
    return std::atexit([] { ending = true; }) == 0;
}

} // namespace vantrel
