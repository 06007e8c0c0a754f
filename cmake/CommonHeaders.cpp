// Compiles CommonHeaders.h for all libraries.
