#pragma once

namespace TovaView {

/// What `tovaview` does, from its command line to its exit code: 0, 1 when a file is at fault, 2
/// when the command line is.
int runProgram(int argc, char** argv);

} // namespace TovaView
