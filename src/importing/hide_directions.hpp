// Known directions as test interactions: hidden from the solver, to see how many of them it
// finds.
#pragma once

#include "importing/import_plan.hpp"

// Makes test interactions of directed ones drawn at random: `amount` is a number of them, or
// a share, as 0.1 or 10%. Two proteins with both directions known are not drawn. The same
// network, amount and seed give the same ones, on any machine. Throws unusable_input when
// the amount is neither, or there are fewer.
void hide_directions(imported_network& network, const std::string& amount, std::uint64_t seed);
