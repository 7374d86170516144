// Measures the tables of docs/limits.md and writes them to standard output.
#include "limits/LimitTables.h"

#include <iostream>

int main() {
    using namespace zt::orvex::testing;
    writeLimitTables(std::cout, Cells::Measured);
}
