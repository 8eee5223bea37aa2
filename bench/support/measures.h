#ifndef MEASURES_H
#define MEASURES_H

#include <cstddef>
#include <vector>

/// The middle one of @p values once sorted; for an even count the upper of the two middle ones.
/// @p values must not be empty.
double median(std::vector<double> values);

/// The heap bytes the process holds now: those in the allocator's arena and the large blocks
/// that it maps apart from the arena.
std::size_t heapInUse();

#endif
