// What check_input says is taken, beside what the readers of a run take and print, on
// thousands of inputs with faults of every kind.
#include <algorithm>
#include <iostream>
#include <random>

#include "checking/check_input.hpp"
#include "support/network.hpp"

namespace {

using damaged_input = network_test;

const lines file_names = {"names.txt", "test", "directed", "undirected", "ko"};

file_texts draw_input(std::mt19937& engine) {
    const auto below = [&](std::size_t limit) { return engine() % limit; };
    const std::size_t num_names = 1 + below(12);
    const auto any_name = [&] {
        static const lines spellings = {"P", "p", "P-", "A_", "_", "", "P "};
        return (below(20) == 0 ? spellings[below(spellings.size())] : "P") +
               std::to_string(below(num_names + (below(12) == 0 ? 2 : 0)));
    };
    file_texts files;
    for (std::size_t i = 0; i < num_names; ++i) {
        files["names.txt"] += (below(15) == 0 ? any_name() : "P" + std::to_string(i)) + "\n";
    }
    for (std::size_t file = 1; file < 5; ++file) {
        std::string& text = files[file_names[file]];
        for (std::size_t line = below(10); line > 0; --line) {
            text += any_name() + " " + any_name() + " " + std::to_string(below(3)) + "\n";
        }
    }
    return files;
}

// Bytes are put in, taken out and exchanged, lines cut, files left out.
void damage(file_texts& files, std::mt19937& engine) {
    static const lines pieces = {
        " ",  "\n",   "\t", "\r",   std::string(1, '\0'), "  ", "\n\n", "\xef\xbb\xbf", "\xff", "xxxxxxxxxxxxxxxxxxxx",
        "P1", " P2 ", "_",  "\n \n"};
    for (auto fault = engine() % 6; fault > 0; --fault) {
        std::string& text = files[file_names[engine() % file_names.size()]];
        const std::size_t place = engine() % (text.size() + 1);
        switch (engine() % 6) {
            case 0:
                text.insert(place, pieces[engine() % pieces.size()]);
                break;
            case 1:
                text.erase(place, 1 + engine() % 3);
                break;
            case 2:
                text.resize(place);
                break;
            case 3:
                std::replace(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(place), ' ', '\t');
                break;
            case 4:
                text += text.substr(place);
                break;
            default:
                if (!text.empty()) {
                    text.pop_back();
                }
        }
    }
    if (engine() % 10 == 0) {
        files.erase(file_names[engine() % file_names.size()]);
    }
}

input_check check_texts(const file_texts& files) {
    return check_input([&](const char* name) {
        const auto file = files.find(name);
        const bool given = file != files.end();
        return text_file{.path = name, .text = given ? file->second : "", .opened = given};
    });
}

// The network in the words of the helpers that describe the run's own.
lines arcs_of(const read_network& network) {
    lines described;
    for (const read_network::interaction& found : network.interactions) {
        const std::string& first = network.proteins[static_cast<std::size_t>(found.first)];
        const std::string& second = network.proteins[static_cast<std::size_t>(found.second)];
        std::ostringstream confidence;
        confidence << found.confidence;
        const bool is_test = found.kind == interaction_kind::test;
        const bool is_directed = found.kind == interaction_kind::directed;
        described.push_back(first + second +
                            (is_directed ? " 1 0 0 "
                             : is_test   ? " 0 1 1 "
                                         : " 0 0 0 ") +
                            confidence.str());
        if (!is_directed) {
            described.push_back(second + first + (is_test ? " 0 2 0 " : " 0 0 0 ") + confidence.str());
        }
    }
    return described;
}

lines knockouts_of(const read_network& network) {
    std::map<int, std::string> by_cause;
    for (const read_network::pair& pair : network.pairs) {
        std::string& text = by_cause[pair.cause];
        text += (text.empty() ? network.proteins[static_cast<std::size_t>(pair.cause)] + ":" : "") + " " +
                network.proteins[static_cast<std::size_t>(pair.effect)];
    }
    lines described;
    for (const auto& [cause, text] : by_cause) {
        described.push_back(text);
    }
    return described;
}

long occurrences(const std::string& text, const std::string& wanted) {
    long count = 0;
    for (std::size_t i = text.find(wanted); i != std::string::npos; i = text.find(wanted, i + 1)) {
        ++count;
    }
    return count;
}

long dropped(const input_check& check, std::size_t file, drop_reason reason) {
    const auto found = check.files[file].dropped.find(reason);
    return found == check.files[file].dropped.end() ? 0 : static_cast<long>(found->second.size());
}

// Every line that holds something is taken or dropped, and none is both.
void expect_each_line_once(const file_check& file) {
    line_numbers accounted;
    for (const auto& [reason, numbers] : file.dropped) {
        accounted.insert(accounted.end(), numbers.begin(), numbers.end());
    }
    std::sort(accounted.begin(), accounted.end());
    EXPECT_EQ(std::adjacent_find(accounted.begin(), accounted.end()), accounted.end());
    if (file.name != "names.txt") {
        const auto empty = file.hazards.find(hazard::empty_line);
        const std::size_t num_empty = empty == file.hazards.end() ? 0 : empty->second.size();
        // In UTF-16 nobody looks at single lines.
        if (!file.hazards.contains(hazard::utf16)) {
            EXPECT_EQ(static_cast<long>(accounted.size() + num_empty) + file.taken, file.lines) << file.name;
        }
    }
}

TEST_F(damaged_input, is_told_as_a_run_takes_it) {
    long clean = 0;
    long taken = 0;
    constexpr int rounds = 6000;
    for (int round = 0; round < rounds; ++round) {
        std::mt19937 engine(static_cast<unsigned>(round));
        file_texts files = draw_input(engine);
        damage(files, engine);
        load(files);
        const std::string messages = printed();
        const input_check check = check_texts(files);
        SCOPED_TRACE(testing::PrintToString(files));

        lines vertices = proteins();
        ASSERT_EQ(check.network.proteins, vertices);
        ASSERT_EQ(check.network.num_searched, num_of_proteins);
        ASSERT_EQ(arcs_of(check.network), arcs());
        ASSERT_EQ(knockouts_of(check.network), knockouts());

        long long_names = 0;
        long empty_lines = 0;
        long unknown_mentions = 0;
        for (std::size_t file = 0; file < 5; ++file) {
            long_names += dropped(check, file, drop_reason::name_too_long);
            const auto empty = check.files[file].hazards.find(hazard::empty_line);
            empty_lines += empty == check.files[file].hazards.end() ? 0 : static_cast<long>(empty->second.size());
            ASSERT_NO_FATAL_FAILURE(expect_each_line_once(check.files[file]));
        }
        for (const unknown_name& unknown : check.unknown_names) {
            unknown_mentions += std::count_if(unknown.mentions.begin(), unknown.mentions.end(),
                                              [](const mention& where) { return where.file != "ko"; });
        }
        // A run refuses an empty line as well, if the name that begins on it is too long.
        const long refused = occurrences(messages, "is longer than 19 characters");
        ASSERT_LE(long_names, refused);
        ASSERT_GE(long_names + empty_lines, refused);
        ASSERT_EQ(dropped(check, 1, drop_reason::self_loop), occurrences(messages, "Notice: self loop accured"));
        ASSERT_EQ(dropped(check, 1, drop_reason::repeated), occurrences(messages, "ERROR: duplicated test edge"));
        // Names that run on are unknown as well, and so may be the name beside them.
        ASSERT_LE(unknown_mentions, occurrences(messages, " not found in the list"));
        bool runs_on = false;
        for (const file_check& file : check.files) {
            runs_on = runs_on || file.dropped.contains(drop_reason::runs_on);
        }
        if (!runs_on) {
            ASSERT_EQ(unknown_mentions, occurrences(messages, " not found in the list"));
            ASSERT_EQ(dropped(check, 4, drop_reason::unknown_name), occurrences(messages, "ERROR : a knouckout pair"));
        }
        clean += check.is_clean() ? 1 : 0;
        taken += static_cast<long>(check.network.interactions.size());
    }
    std::cerr << "compared " << rounds << " damaged inputs with the readers of a run: " << clean << " without a loss, "
              << taken << " interactions taken\n";
}

TEST_F(damaged_input, of_too_many_proteins_loses_everything) {
    for (const int count : {9999, 10000}) {
        file_texts files{{"directed", "P1 P2 1\n"}, {"ko", "P1 P2 1\n\n"}};
        for (int i = 0; i < count; ++i) {
            files["names.txt"] += "P" + std::to_string(i) + "\n";
        }
        load(files);
        const input_check check = check_texts(files);
        EXPECT_EQ(check.network.interactions.size(), arcs().size());
        EXPECT_EQ(check.is_clean(), count == 9999);
        EXPECT_EQ(check.lines_lost(), count == 9999 ? 0 : 10002);
        EXPECT_EQ(check.unmentioned.size(), count == 9999 ? 9997u : 0u);
    }
}

}  // namespace
