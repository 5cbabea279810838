// What a file held, told by its SHA-256 digest (FIPS 180-4; OpenSSL's libcrypto).
#pragma once

#include <string>
#include <string_view>

// 64 hexadecimal digits in lower case. Throws std::runtime_error when the library fails.
std::string sha256(std::string_view text);
// The same of a file's bytes. Throws unusable_input when it cannot be read.
std::string sha256_of_file(const std::string& path);
