#include "input/text_file.hpp"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <vector>

#include "model/network_graph.hpp"

text_file open_text_file(const std::string& path) {
    text_file file{.path = path, .text = {}, .opened = false};
    std::ifstream in(path, std::ios::binary);
    std::vector<char> block(1 << 16);
    while (in) {
        in.read(block.data(), static_cast<std::streamsize>(block.size()));
        file.text.append(block.data(), static_cast<std::size_t>(in.gcount()));
    }
    // Reading to the end leaves eof; a folder opens but does not read.
    file.opened = in.eof() && !in.bad();
    return file;
}

std::string_view take_line(text_file& file, bool& ended) {
    const std::string_view rest = std::string_view(file.text).substr(file.position);
    const std::size_t length = rest.find('\n');
    ended = length != std::string_view::npos;
    file.position = ended ? file.position + length + 1 : file.text.size();
    return rest.substr(0, length);
}

std::string_view as_c_string(std::string_view field) {
    return field.substr(0, field.find('\0'));
}

void report_long_name(text_file& file, std::size_t record_start, std::string_view field) {
    if (file.quiet) {
        return;
    }
    const auto text = file.text.begin();
    file.line += static_cast<int>(std::count(text + static_cast<std::ptrdiff_t>(file.counted),
                                             text + static_cast<std::ptrdiff_t>(record_start), '\n'));
    file.counted = record_start;

    constexpr std::size_t shown_bytes = 40;
    std::string shown(field.substr(0, shown_bytes));
    std::replace_if(
        shown.begin(), shown.end(), [](unsigned char byte) { return byte < 0x20 || byte == 0x7f; }, '?');
    std::cout << "ERROR: in file " << file.path << " line " << file.line << ": name " << shown << " is longer than "
              << max_name_length << " characters" << std::endl;
}
