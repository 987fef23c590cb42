// Nothing is started here: the benchmark of the start-up must find the library down. A benchmark that needs it up makes
// a LibraryUp.

#include <benchmark/benchmark.h>

BENCHMARK_MAIN();
