// Compiles CommonHeaders.h for all tests.
