#pragma once

/// Parses the arguments by the rows of verbs() and runs the verb. Gives the exit code; throws what the verb throws.
int runCommandLine(int argc, char** argv);
