#include "naming/alias.hpp"

#include <algorithm>
#include <cstdint>
#include <set>

#include "naming/drawable.hpp"

namespace {

bool is_visible(char c) {
    return c > ' ' && c < '\x7f';
}

// Greek letters stand in UTF-8 as CE 91 (Alpha) to CF 89 (omega); both sigmas are one.
std::string_view greek_letter(std::string_view rest) {
    constexpr std::string_view letters[] = {"alpha",   "beta", "gamma", "delta",  "epsilon", "zeta", "eta",
                                            "theta",   "iota", "kappa", "lambda", "mu",      "nu",   "xi",
                                            "omicron", "pi",   "rho",   "sigma",  "sigma",   "tau",  "upsilon",
                                            "phi",     "chi",  "psi",   "omega"};
    if (rest.size() < 2 || (static_cast<unsigned char>(rest[0]) & 0xfe) != 0xce) {
        return {};
    }
    const int code = ((static_cast<unsigned char>(rest[0]) & 0x1f) << 6) | (static_cast<unsigned char>(rest[1]) & 0x3f);
    const int small = code >= 0x3b1 ? code - 0x3b1 : code - 0x391;
    return small >= 0 && small < 25 && code <= 0x3c9 ? letters[small] : std::string_view();
}

std::string readable(std::string_view name) {
    std::string text;
    while (!name.empty()) {
        if (const std::string_view letter = greek_letter(name); !letter.empty()) {
            text += letter;
            name.remove_prefix(2);
            continue;
        }
        // Of a character of several bytes the first stands for all.
        const bool goes_on = (static_cast<unsigned char>(name[0]) & 0xc0) == 0x80;
        if (!goes_on) {
            text += is_visible(name[0]) && name[0] != '\\' ? name[0] : '_';
        }
        name.remove_prefix(1);
    }
    return text.empty() ? "_" : text;
}

// FNV-1a, four times five bits of it: the same on every machine.
std::string digest(std::string_view name, unsigned attempt) {
    std::uint64_t hash = 0xcbf29ce484222325ULL + attempt;
    for (const char c : name) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3ULL;
    }
    std::string text;
    for (hash ^= hash >> 32; text.size() < 4; hash >>= 5) {
        text += "abcdefghijklmnopqrstuvwxyz234567"[hash & 31];
    }
    return text;
}

}  // namespace

bool can_stand(std::string_view name) {
    return !name.empty() && name.size() <= longest_name && std::all_of(name.begin(), name.end(), is_visible) &&
           is_drawable(name);
}

std::map<std::string, std::string> make_aliases(const std::vector<std::string>& names) {
    std::map<std::string, std::string> aliases;
    std::set<std::string> taken(names.begin(), names.end());
    for (const std::string& name : names) {
        if (!can_stand(name)) {
            aliases[name];
        }
    }
    for (auto& [name, alias] : aliases) {
        const std::string text = readable(name);
        alias = text;
        for (unsigned attempt = 0; !can_stand(alias) || taken.contains(alias); ++attempt) {
            alias = text.substr(0, longest_name - 5) + "~" + digest(name, attempt);
        }
        taken.insert(alias);
    }
    return aliases;
}
