// No code: this file only compiles the headers that cmake/imptable_targets.cmake lists.
