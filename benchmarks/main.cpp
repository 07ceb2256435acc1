#include "heap_use.hpp"
#include "table_reporter.hpp"

int main(int argc, char** argv) {
    bench::keep_freed_memory();
    return bench::run_and_print_table(argc, argv);
}
