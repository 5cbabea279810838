#include "pages/page_parts.hpp"

#include <algorithm>

std::optional<std::string_view> page_part(std::string_view name) {
    const std::vector<embedded_part>& parts = embedded_parts();
    const auto found =
        std::find_if(parts.begin(), parts.end(), [&](const embedded_part& part) { return part.name == name; });
    return found == parts.end() ? std::nullopt : std::optional(std::string_view(found->begin, found->end));
}
