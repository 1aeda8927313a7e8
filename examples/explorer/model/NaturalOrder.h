#pragma once

namespace explorer {

/// Compares two file names as a person would sort them: without regard to case and accents, and
/// numbers by their value, so that "file 2" stands before "File 10". Names that are equal so far
/// are told apart by their bytes: only equal bytes give 0. Negative means that `a` comes first.
int compareNatural(char const * a, char const * b);

} // namespace explorer
