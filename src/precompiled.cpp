// Compiled with the headers that are compiled once; a set of them takes a source.
