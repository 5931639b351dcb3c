#pragma once
// The peak resident memory of the running process, for the benchmarks
// that run one measurement per process.
#include <sys/resource.h>

inline long PeakKilobytes()
{
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}
