// Colours by status, the same in every picture: apart from each other also for the
// colour-blind (after Okabe and Ito) and on white.
#pragma once

#include <array>

// In the order of results::interaction_status: known, decided, tied, unused, open.
inline constexpr std::array status_colours = {"#333333", "#0072b2", "#d98a00", "#a0a0a0", "#b0568c"};
