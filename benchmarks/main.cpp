#include "table_reporter.hpp"

int main(int argc, char** argv) {
    return bench::run_and_print_table(argc, argv);
}
