// A plain C++ program, alone or linked with the library: what a process start costs.
#include <iostream>
int main() {}
