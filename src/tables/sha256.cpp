#include "tables/sha256.hpp"

#include <openssl/evp.h>

#include <array>
#include <stdexcept>

std::string sha256(std::string_view text) {
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    unsigned int size = 0;
    if (EVP_Digest(text.data(), text.size(), digest.data(), &size, EVP_sha256(), nullptr) != 1) {
        throw std::runtime_error("the cryptography library gives no SHA-256");
    }
    constexpr std::string_view digits = "0123456789abcdef";
    std::string shown;
    for (unsigned int i = 0; i < size; ++i) {
        shown += digits[digest[i] >> 4];
        shown += digits[digest[i] & 15];
    }
    return shown;
}
