#pragma once

namespace vt::cli {

// The command-line companion: veritrace-cli <command> [options]. Returns the exit code.
int Main(int argc, char** argv);

} // namespace vt::cli
