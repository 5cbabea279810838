// Files that are whole or absent: written beside their place under the name with
// ".part" at its end, and moved there once every byte has reached the disk.
#pragma once

#include <string>
#include <string_view>

// Puts the text at the path, in place of what is there. Throws std::system_error, whose
// text names the path and the system's reason, and leaves what was there as it was.
void write_whole_file(const std::string& path, std::string_view text);
