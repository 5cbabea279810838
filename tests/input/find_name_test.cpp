// What the search finds and where it ends, at every size of table that is quick to
// try: its two misses are part of what it promises.
#include <random>

#include "input/name_table.hpp"
#include "support/network.hpp"

using find_name_test = network_test;

namespace {

// Every step is half the last one, rounded up, until the search comes back to where it
// was two steps ago. Also says where it ended.
std::pair<bool, int> search_in_steps(const lines& names, const std::string& wanted) {
    const int last = static_cast<int>(names.size()) - 1;
    int one_ago = 0;
    for (int here = last / 2;;) {
        const int difference = wanted.compare(names[static_cast<std::size_t>(here)]);
        if (difference == 0) {
            return {true, here};
        }
        const int half = (std::abs(here - one_ago) + 1) / 2;
        const int step = half > here ? 1 : half;
        const int two_ago = std::exchange(one_ago, here);
        here += difference > 0 ? step : -step;
        const bool before_all = here < 0;
        here = before_all ? 0 : here > last ? last - 1 : here;
        if (before_all || here == two_ago) {
            return {false, here};
        }
    }
}

}  // namespace

// Even numbers are in the table; behind them stands one entry more, empty or, as after a
// file without its last line feed, one more name.
TEST_F(find_name_test, ends_where_its_steps_end_and_finds_all_but_two_names) {
    for (const std::string last : {"", "999999"}) {
        for (int max_id = 0; max_id <= 300; ++max_id) {
            lines names;
            lines wanted{last, "1"};
            std::string text;
            for (int i = 0; i < max_id; ++i) {
                names.push_back(std::to_string(100000 + 2 * i));
                wanted.insert(wanted.end(), {names.back(), std::to_string(100001 + 2 * i)});
                text += names.back() + "\n";
            }
            names.push_back(last);
            load({{"names.txt", text + last}});
            for (std::size_t i = 0; i < wanted.size(); ++i) {
                int mid = -1;
                const bool found = find_name(protein_names_map, wanted[i].c_str(), max_id, &mid);
                ASSERT_EQ(std::pair(found, mid), search_in_steps(names, wanted[i])) << max_id << ' ' << wanted[i];
                const bool deliberate_miss = i == 2 && (max_id == 2 || max_id == 3);
                ASSERT_TRUE(i < 2 || found == (i % 2 == 0 && !deliberate_miss)) << max_id << ' ' << wanted[i];
            }
        }
    }
}

// Names that push one another out, some of them several times in the table, asked for
// again and again in any order.
TEST_F(find_name_test, is_what_the_finder_finds) {
    std::mt19937 engine(1);
    for (const int max_id : {0, 1, 2, 3, 4, 700, 9999}) {
        const auto name_of = [](int number) { return std::to_string(100000 + number); };
        std::string text;
        for (int i = 0; i < max_id; ++i) {
            text += name_of(i - i % 3) + "\n";
        }
        load({{"names.txt", text}});
        protein_finder finder(max_id);
        for (int i = 0; i < 5 * max_id + 10; ++i) {
            const std::string name = i % 50 == 0 ? "" : name_of(static_cast<int>(engine() % 10001) % (max_id + 2));
            int mid = 0;
            const bool found = find_name(protein_names_map, name.c_str(), max_id, &mid);
            ASSERT_EQ(finder.find(name), found ? protein_names_map[mid].protein : nullptr) << max_id << ' ' << name;
        }
    }
}
