// Gives the precompiled headers of the tests a program to belong to: they are compiled with the
// options of a program.

int main() { return 0; }
