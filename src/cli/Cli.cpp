#include "cli/Cli.h"

#include <cstdio>

namespace vt::cli {

int Main(int, char**) {
    std::fprintf(stderr, "veritrace-cli: no commands yet\n");
    return 2;
}

} // namespace vt::cli
