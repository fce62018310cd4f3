// No code: what is compiled here is the headers that cmake/imptable_targets.cmake lists.
