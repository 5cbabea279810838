// What the search finds, at every size of table that is quick to try: its two misses
// are part of what it promises.
#include <numeric>
#include <random>

#include "input/name_table.hpp"
#include "support/run_state.hpp"

namespace {

// Even numbers are in the table; behind them stands the entry max_id, empty or, as
// after a file without its last line feed, one more name.
std::vector<protein_name_data> table_of(int max_id, const char* last) {
    std::vector<protein_name_data> table(static_cast<std::size_t>(max_id) + 1);
    for (int i = 0; i <= max_id; ++i) {
        table[static_cast<std::size_t>(i)].name = std::make_unique<char[]>(max_name_length + 1);
        const std::string name = i < max_id ? std::to_string(100000 + 2 * i) : last;
        name.copy(table[static_cast<std::size_t>(i)].name.get(), max_name_length);
    }
    return table;
}

}  // namespace

TEST(find_name, finds_all_but_two_names_and_nothing_else) {
    std::vector<int> sizes(301);
    std::iota(sizes.begin(), sizes.end(), 0);
    sizes.insert(sizes.end(), {4097, 9999});
    for (const char* last : {"", "999999"}) {
        for (const int max_id : sizes) {
            std::vector<protein_name_data> table = table_of(max_id, last);
            for (int key = -1; key <= 2 * max_id; ++key) {
                int mid = -1;
                const bool found = find_name(table.data(), std::to_string(100000 + key).c_str(), max_id, &mid);
                const bool in_table = key >= 0 && key % 2 == 0 && key < 2 * max_id;
                const bool deliberate_miss = key == 0 && (max_id == 2 || max_id == 3);
                ASSERT_EQ(found, in_table && !deliberate_miss) << max_id << ' ' << key;
                ASSERT_TRUE(!found || mid == key / 2) << max_id << ' ' << key;
            }
        }
    }
}

TEST(find_name, answers_not_found_where_an_entry_has_no_name) {
    std::vector<protein_name_data> table(2);
    int mid = -1;
    EXPECT_FALSE(find_name(table.data(), "A", -1, &mid));
    EXPECT_FALSE(find_name(table.data(), "", 1, &mid));
    EXPECT_EQ(mid, 0);
}

// Names that push one another out, some of them several times in the table, asked for
// again and again in any order.
TEST(protein_finder, finds_what_the_search_finds) {
    reset_run_state();
    std::mt19937 engine(1);
    for (const int max_id : {0, 1, 2, 3, 4, 700, 9999}) {
        for (int i = 0; i <= max_id; ++i) {
            const std::string name = i < max_id ? std::to_string(100000 + i - i % 3) : "";
            protein_names_map[i].protein = add_protein(name);
            protein_names_map[i].name = std::make_unique<char[]>(max_name_length + 1);
            name.copy(protein_names_map[i].name.get(), max_name_length);
        }
        protein_finder finder(max_id);
        for (int i = 0; i < 5 * max_id + 10; ++i) {
            const std::string name =
                engine() % 50 == 0 ? "" : std::to_string(100000 + engine() % static_cast<unsigned>(max_id + 2));
            int mid = 0;
            const bool found = find_name(protein_names_map, name.c_str(), max_id, &mid);
            ASSERT_EQ(finder.find(name), found ? protein_names_map[mid].protein : nullptr) << max_id << ' ' << name;
        }
    }
    reset_run_state();
}
