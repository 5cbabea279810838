// Files that are whole or absent: written beside their place under the name with
// ".part" at its end, and moved there once every byte has reached the disk.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// Puts the text at the path, in place of what is there. Throws std::system_error, whose
// text names the path and the system's reason, and leaves what was there as it was.
void write_whole_file(const std::string& path, std::string_view text);

// Several files of one folder, which is made if it is not there: their names and texts.
struct whole_file {
    std::string name;
    std::string text;
};
// All of them or none, as far as the system allows: nothing is moved to its place before
// every text has reached the disk. Throws std::system_error as above; what was there is then
// as it was, unless moving itself fails halfway.
void write_whole_files(const std::string& folder, const std::vector<whole_file>& files);
