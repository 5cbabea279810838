// The search against its defining steps, at every size of table that is quick to
// try: the misses and the last position are part of what it promises.
#include <cmath>
#include <cstring>
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

bool find_by_steps(const std::vector<protein_name_data>& table, const char* name, int max_id, int& out_mid) {
    const auto compare_with = [&](int index) {
        return std::strcmp(name, table.at(static_cast<std::size_t>(index)).name.get());
    };
    int mid = max_id / 2, prev_mid = 0, temp = 0, search_span = max_id, comp = compare_with(mid);
    bool found = false;
    while (!found && search_span >= 0) {
        const double help = std::abs(prev_mid - mid);
        search_span = static_cast<int>(std::ceil(help / 2.0));
        if (search_span > mid) search_span = 1;
        temp = prev_mid;
        prev_mid = mid;
        if (comp == 0) {
            found = true;
        } else {
            mid = comp > 0 ? mid + search_span : mid - search_span;
            if (mid > max_id) {
                mid = max_id - 1;
                if (search_span <= 0) search_span = -1;
            } else if (mid < 0) {
                mid = 0;
                search_span = -1;
            }
            if (mid == temp) search_span = -1;
        }
        comp = compare_with(mid);
    }
    out_mid = mid;
    return found;
}

}  // namespace

TEST(find_name, follows_its_steps_and_finds_all_but_two_names) {
    for (const char* last : {"", "999999"}) {
        for (int max_id = 0; max_id <= 300; ++max_id) {
            std::vector<protein_name_data> table = table_of(max_id, last);
            for (int key = -1; key <= 2 * max_id; ++key) {
                const std::string name = std::to_string(100000 + key);
                int mid = -1, expected_mid = -1;
                const bool found = find_name(table.data(), name.c_str(), max_id, &mid);
                ASSERT_EQ(found, find_by_steps(table, name.c_str(), max_id, expected_mid)) << max_id << ' ' << key;
                ASSERT_EQ(mid, expected_mid) << max_id << ' ' << key;
                const bool in_table = key >= 0 && key % 2 == 0 && key < 2 * max_id;
                const bool deliberate_miss = key == 0 && (max_id == 2 || max_id == 3);
                ASSERT_EQ(found, in_table && !deliberate_miss) << max_id << ' ' << key;
            }
        }
    }
}

TEST(find_name, finds_every_name_of_a_full_table) {
    for (const int max_id : {4097, 9999}) {
        std::vector<protein_name_data> table = table_of(max_id, "");
        for (int index = 0; index < max_id; ++index) {
            int mid = -1;
            ASSERT_TRUE(find_name(table.data(), std::to_string(100000 + 2 * index).c_str(), max_id, &mid));
            ASSERT_EQ(mid, index);
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
