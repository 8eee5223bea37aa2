#ifndef ALLOCATIONCOUNTER_H
#define ALLOCATIONCOUNTER_H

/// The heap blocks the process has allocated so far, Qt's own included; -1 in a sanitizer build,
/// whose allocator counts nothing here. Link allocationcounter.cpp into the benchmark to use it.
long allocationCount();

#endif
