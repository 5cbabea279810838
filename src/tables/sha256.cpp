#include "tables/sha256.hpp"

#include <openssl/evp.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <vector>

#include "tables/unusable_input.hpp"

namespace {

using digest_bytes = std::array<unsigned char, EVP_MAX_MD_SIZE>;

[[noreturn]] void fail() {
    throw std::runtime_error("the cryptography library gives no SHA-256");
}

std::string in_hexadecimal(const digest_bytes& digest, unsigned int size) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string shown;
    for (unsigned int i = 0; i < size; ++i) {
        shown += digits[digest[i] >> 4];
        shown += digits[digest[i] & 15];
    }
    return shown;
}

}  // namespace

std::string sha256(std::string_view text) {
    digest_bytes digest{};
    unsigned int size = 0;
    if (EVP_Digest(text.data(), text.size(), digest.data(), &size, EVP_sha256(), nullptr) != 1) {
        fail();
    }
    return in_hexadecimal(digest, size);
}

std::string sha256_of_file(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(), EVP_MD_CTX_free);
    if (!context || EVP_DigestInit_ex(context.get(), EVP_sha256(), nullptr) != 1) {
        fail();
    }
    std::vector<char> block(1 << 16);
    while (file) {
        file.read(block.data(), static_cast<std::streamsize>(block.size()));
        if (EVP_DigestUpdate(context.get(), block.data(), static_cast<std::size_t>(file.gcount())) != 1) {
            fail();
        }
    }
    // Reading to the end leaves eof; a folder opens but does not read.
    if (!file.eof() || file.bad()) {
        throw unusable_input(path + ": cannot be read: " + std::strerror(errno));
    }
    digest_bytes digest{};
    unsigned int size = 0;
    if (EVP_DigestFinal_ex(context.get(), digest.data(), &size) != 1) {
        fail();
    }
    return in_hexadecimal(digest, size);
}
