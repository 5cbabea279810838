// The files that the report's page is made of, inside the program.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

struct embedded_part {
    std::string_view name;
    const char* begin;
    const char* end;
};

// In the order in which the page takes them in.
const std::vector<embedded_part>& embedded_parts();

// The text of a file; nothing where it was not there when the program was built.
std::optional<std::string_view> page_part(std::string_view name);
