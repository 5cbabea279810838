// Many numbers of which few are different: a byte each that says which one it is. The
// bounds, weights and coefficients of a model are 0, 1 and -1 nearly all. Where more
// than 256 different ones come together, they are kept as they are.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <vector>

namespace solver {

class number_list {
 public:
    number_list() = default;
    number_list(const std::vector<double>& numbers) {
        for (const double number : numbers) {
            push_back(number);
        }
    }
    number_list(std::initializer_list<double> numbers) : number_list(std::vector<double>(numbers)) {}

    std::size_t size() const { return is_plain_ ? plain_.size() : places_.size(); }
    bool empty() const { return size() == 0; }
    double operator[](std::size_t index) const { return is_plain_ ? plain_[index] : known_[places_[index]]; }
    double back() const { return (*this)[size() - 1]; }

    void reserve(std::size_t count) { places_.reserve(count); }
    void assign(std::size_t count, double number) {
        *this = {};
        places_.assign(count, static_cast<std::uint8_t>(place_of(number)));
    }
    void push_back(double number) {
        const std::size_t place = is_plain_ ? 0 : place_of(number);
        if (is_plain_) {
            plain_.push_back(number);
        } else {
            places_.push_back(static_cast<std::uint8_t>(place));
        }
    }
    void set(std::size_t index, double number) {
        const std::size_t place = is_plain_ ? 0 : place_of(number);
        if (is_plain_) {
            plain_[index] = number;
        } else {
            places_[index] = static_cast<std::uint8_t>(place);
        }
    }

    // One after another, as solvers take them.
    std::vector<double> plain() const {
        std::vector<double> numbers(size());
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            numbers[i] = (*this)[i];
        }
        return numbers;
    }
    friend bool operator==(const number_list& one, const number_list& other) { return one.plain() == other.plain(); }

 private:
    static constexpr std::size_t most_known = 256;

    static bool same(double one, double other) {
        return std::bit_cast<std::uint64_t>(one) == std::bit_cast<std::uint64_t>(other);
    }
    // Where the number stands among the known ones. When there is no room, all become plain.
    std::size_t place_of(double number) {
        std::size_t place = 0;
        while (place < known_.size() && !same(known_[place], number)) {
            ++place;
        }
        if (place == most_known) {
            plain_ = plain();
            is_plain_ = true;
            places_ = {};
        } else if (place == known_.size()) {
            known_.push_back(number);
        }
        return place;
    }

    std::vector<double> known_;
    std::vector<std::uint8_t> places_;  // among the known ones
    std::vector<double> plain_;
    bool is_plain_ = false;
};

}  // namespace solver
