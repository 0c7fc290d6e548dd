#pragma once

/// What the main functions of the test programs share; they differ in their application object.
namespace QVTestProgram {

/// Called before there is an application object.
void prepare();
/// Runs the test class named by the first argument; Qt Test takes the rest. Gives the program's exit code.
[[nodiscard]] int run();

} // namespace QVTestProgram
