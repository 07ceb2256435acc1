#include "table_reporter.hpp"

#if __has_include(<malloc.h>)
#include <malloc.h>
#endif

namespace {

/// Memory that is given back stays with the program, as in a host that has detected a large text
/// before. Otherwise large texts measure how fast the system clears fresh pages, and small ones do
/// not.
void keep_freed_memory() {
#if defined(__GLIBC__)
    constexpr int most_bytes = 1 << 30;
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, most_bytes);
#endif
}

} // namespace

int main(int argc, char** argv) {
    keep_freed_memory();
    return bench::run_and_print_table(argc, argv);
}
