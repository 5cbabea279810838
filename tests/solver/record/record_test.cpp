// The compact lists of a record against plain ones.
#include <random>

#include <gtest/gtest.h>

#include "solver/record/model_record.hpp"

using namespace solver;

// With few different numbers and with more than a byte can tell apart.
TEST(number_list, holds_what_a_vector_holds) {
    for (const unsigned different : {3U, 256U, 257U, 1000U}) {
        SCOPED_TRACE(different);
        std::mt19937 random(different);
        number_list list;
        std::vector<double> plain;
        const auto drawn = [&] { return static_cast<double>(random() % different) / 4.0 - 1.0; };
        for (int i = 0; i < 5000; ++i) {
            const double number = drawn();
            list.push_back(number);
            plain.push_back(number);
            const std::size_t place = random() % plain.size();
            plain[place] = drawn();
            list.set(place, plain[place]);
        }
        EXPECT_EQ(list.plain(), plain);
        EXPECT_EQ(list, number_list(plain));
        EXPECT_EQ(list.back(), plain.back());
        plain[7] = 1e9;
        EXPECT_FALSE(list == number_list(plain));
        list.assign(3, infinity);
        EXPECT_EQ(list.plain(), std::vector<double>(3, infinity));
    }
}

TEST(name_list, holds_what_a_vector_of_strings_holds) {
    std::mt19937 random(1);
    for (const unsigned every : {1U, 2U, 50U, 1000U}) {
        std::vector<std::string> plain;
        for (unsigned i = 0; i < 1000; ++i) {
            plain.push_back(random() % every == 0 ? std::string(1 + random() % 20, static_cast<char>('a' + i % 26))
                                                  : "");
        }
        const name_list list(plain);
        ASSERT_EQ(list.size(), plain.size());
        for (std::size_t i = 0; i < plain.size(); ++i) {
            ASSERT_EQ(list[i], plain[i]);
        }
        plain[500] += "x";
        EXPECT_FALSE(list == name_list(plain));
    }
}
