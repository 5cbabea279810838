// What the C library does with memory that is given back to it.
#pragma once

// For good: large blocks go back to the system once they are freed. Left to itself, the
// C library keeps ever larger ones for later, among what is still in use, and a long solve,
// whose linear programs grow, then holds a sixth more than it needs.
void give_back_large_blocks();
