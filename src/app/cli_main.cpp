#include "cli/Cli.h"

int main(int argc, char** argv) {
    return vt::cli::Main(argc, argv);
}
