// The five files of an input folder, read once: a run is given these texts, and what is
// said of lines and digests afterwards is said of the same texts.
#pragma once

#include <array>
#include <string>

#include "input/read_data.hpp"

inline constexpr std::array<const char*, 5> input_file_names = {"names.txt", "test", "directed", "undirected", "ko"};

struct input_files {
    std::string folder;              // ends with a slash
    std::array<text_file, 5> files;  // in the order of input_file_names

    const text_file& file(const std::string& name) const;
    // For read_data: a file by its name.
    input_opener opener() const;
};

// Throws unusable_input when the folder, or a file of it, cannot be read; "test" alone
// may be missing. A slash that is missing behind the folder is added.
input_files read_input_files(std::string folder);
