// Figures that were worked out by hand: intervals, baselines, folds, sums and sentences.
#include <numeric>

#include "evaluation/summary.hpp"
#include "evaluation/worker_processes.hpp"
#include "support/network.hpp"

namespace {

// 7 of 10: centre (0.7 + 0.1921) / 1.3841, reach 1.96 sqrt(0.021 + 0.0096) / 1.3841.
TEST(wilson, is_as_worked_by_hand) {
    const std::tuple<long, long, double, double> cases[] = {{7, 10, 0.3968, 0.8922},
                                                            {0, 10, 0.0, 0.2775},
                                                            {10, 10, 0.7225, 1.0},
                                                            {500, 1000, 0.4691, 0.5309},
                                                            {0, 0, 0.0, 1.0}};
    for (const auto& [right, all, lower, upper] : cases) {
        const interval found = wilson_interval(right, all);
        EXPECT_NEAR(found.lower, lower, 5e-5) << right << " of " << all;
        EXPECT_NEAR(found.upper, upper, 5e-5) << right << " of " << all;
    }
}

judged_direction judged(bool right, long regret, vote share = vote::undecided, vote nearness = vote::undecided) {
    judged_direction made;
    made.found = right ? found_direction::first_to_second : found_direction::second_to_first;
    made.status = regret > 0 ? interaction_status::decided : interaction_status::tied;
    made.has_regret = true;
    made.regret = {regret, regret};
    made.share = share;
    made.nearness = nearness;
    return made;
}

TEST(summary, sorts_into_classes_and_counts_an_undecided_baseline_as_half) {
    std::vector<judged_direction> items = {judged(true, 0, vote::right),  judged(false, 1, vote::wrong),
                                           judged(true, 2, vote::right),  judged(true, 3),
                                           judged(true, 4, vote::right),  judged(true, 9),
                                           judged(true, 10, vote::right), judged(false, 11)};
    items.emplace_back();  // without a direction
    judged_direction unproven = judged(true, 0);
    unproven.status = interaction_status::open;
    items.push_back(unproven);
    const evaluation_summary summary = summarize(items);
    EXPECT_EQ(summary.hidden, 10);
    EXPECT_EQ(std::pair(summary.all.oriented, summary.all.right), std::pair(9L, 7L));
    std::vector<std::pair<long, long>> classes;
    for (const share_line& line : summary.classes) {
        classes.emplace_back(line.oriented, line.right);
    }
    EXPECT_EQ(classes, (std::vector<std::pair<long, long>>{{1, 1}, {1, 0}, {2, 2}, {2, 2}, {2, 1}, {1, 1}}));
    EXPECT_EQ(summary.baselines[0].right, 4.5);
    EXPECT_EQ(std::pair(summary.baselines[1].decided, summary.baselines[1].right), std::pair(5L, 4.0));
    EXPECT_DOUBLE_EQ(summary.baselines[1].score, (4 + 4 / 2.0) / 9);
    EXPECT_EQ(summary.baselines[2].score, 0.5);
    EXPECT_DOUBLE_EQ(summary.all.baseline, (4 + 4 / 2.0) / 9);
    EXPECT_EQ(std::pair(summary.classes[0].baseline, summary.classes[1].baseline), std::pair(1.0, 0.5));
}

// So many of each kind: rights and wrongs of regret 1, with what a baseline says of them.
std::string concluded(int rights, int wrongs, way_of_hiding way, vote nearness = vote::undecided) {
    std::vector<judged_direction> items;
    for (int i = 0; i < rights + wrongs; ++i) {
        items.push_back(judged(i < rights, 1, vote::undecided, nearness));
    }
    return conclusion(summarize(items), way);
}

TEST(conclusion, is_chosen_by_the_figures) {
    const auto all = way_of_hiding::all;
    EXPECT_EQ(concluded(80, 20, all),
              "Better than every baseline: 80 % of the directions given are right, the best baseline (coin) has 50 %."
              " By regret: regret 1 may be relied on.");
    EXPECT_EQ(concluded(52, 48, all),
              "No better than a coin, as far as 100 directions can tell: 52 % of the directions given are right, "
              "against 50 %. By regret: regret 1 may not be relied on.");
    EXPECT_TRUE(concluded(80, 20, all, vote::right)
                    .starts_with("No better than the baseline nearer to the causes, as far as 100 directions can tell:"
                                 " 80 % of the directions given are right, against 100 %. By regret: regret 1 is better"
                                 " than a coin, but no better than a baseline."));
    EXPECT_TRUE(concluded(20, 80, all).starts_with("Worse than a coin: only 20 % "));
    EXPECT_NE(concluded(3, 1, all).find("regret 1 is too small a class to tell"), std::string::npos);
    EXPECT_EQ(concluded(0, 0, all), "No direction was hidden, so nothing can be said.");
    for (const way_of_hiding way : {way_of_hiding::folds, way_of_hiding::given}) {
        EXPECT_TRUE(concluded(80, 20, way).ends_with("--hide all is free of this bias."));
    }
}

class evaluation_network_test : public network_test {
 protected:
    network_record record(const file_texts& texts) {
        load(texts);
        input_files input{"in/", {}};
        for (std::size_t i = 0; i < input.files.size(); ++i) {
            input.files[i].text = texts.at(input_file_names[i]);
        }
        files = input;
        return record_network(files);
    }
    input_files files;
};

TEST_F(evaluation_network_test, baselines_are_as_worked_by_hand) {
    const network_record network = record({{"names.txt", "K\nL\nM\nN\nO\nZ\n"},
                                           {"test", "K M 1\nL M 1\nN K 1\nN O 1\nZ K 1\n"},
                                           {"directed", "K L 1\nK L 1\nK Z 1\nL M 1\nM L 1\nX K 1\nZ L 1\n"},
                                           {"undirected", "K N 1\nO M 1\n"},
                                           {"ko", "K M 1\nK L 1\nX L 1\n"}});
    // "K Z" and "L M" are test interactions, so their lines of "directed" are dropped: K has 1
    // of 1, L 0 of 2, Z 1 of 1 going out, the others have none.
    using enum vote;
    EXPECT_EQ(by_outgoing_share(network), (std::vector{right, wrong, wrong, undecided, undecided}));
    // K 0, its neighbours L, M, N and Z 1, O 2.
    EXPECT_EQ(by_nearness_to_causes(network), (std::vector{right, undecided, wrong, right, wrong}));
}

TEST_F(evaluation_network_test, hiding_keeps_the_network_and_takes_its_known_directions) {
    const network_record network = record({{"names.txt", "A\nB\nC\nD\nE\nF\n"},
                                           {"test", "A B 0.5\nB A 1\n"},
                                           {"directed", "B C 0.25\nC B 1\nQ A 1\nD E 0.125\nE F 1\nB A 1\n"},
                                           {"undirected", "D E 1\nA F 1\n"},
                                           {"ko", "A F 1\n"}});
    std::vector<std::string> known;
    for (const known_direction& item : known_directions(network)) {
        known.push_back(item.first + item.second + std::to_string(item.line));
    }
    EXPECT_EQ(known, (std::vector<std::string>{"AB1", "DE4", "EF5"}));
    const hidden_input hidden = hide(files, network, {0, 1, 0});
    EXPECT_EQ(hidden.input.file("test").text, "D E 0.125\n");
    EXPECT_EQ(hidden.input.file("directed").text, "A B 0.5\nB C 0.25\nC B 1\nE F 1\n");
    EXPECT_EQ(hidden.known, (std::vector<int>{1}));
    std::string messages;
    const network_record again = read_network(hidden.input, messages);
    EXPECT_EQ(messages, "");
    EXPECT_EQ(again.interactions.size(), network.interactions.size());
    EXPECT_EQ(again.interactions.front().confidence, 0.125);
}

TEST(folds, hold_every_direction_once_and_as_many_each) {
    const std::vector<int> folds = draw_folds(23, 5, 7);
    for (int fold = 0; fold < 5; ++fold) {
        const auto count = std::count(folds.begin(), folds.end(), fold);
        EXPECT_TRUE(count == 4 || count == 5);
    }
    EXPECT_EQ(folds, draw_folds(23, 5, 7));
    EXPECT_NE(folds, draw_folds(23, 5, 8));
}

TEST(worker_processes, give_their_results_in_order_whatever_their_number) {
    const auto square = [](int i) { return std::string(static_cast<std::size_t>(10000 * i), 'x') + std::to_string(i); };
    for (const int jobs : {1, 3, 20}) {
        int reported = 0;
        worker_choices choices;
        choices.jobs = jobs;
        choices.report = [&](int done, int) { reported = done; };
        const auto results = run_in_processes(11, square, choices);
        for (int i = 0; i < 11; ++i) {
            EXPECT_EQ(results[static_cast<std::size_t>(i)], square(i));
        }
        EXPECT_GT(reported, 0);
    }
}

TEST(worker_processes, tell_why_one_failed_and_begin_no_more_after_a_stop) {
    const auto failing = [](int i) -> std::string {
        return i == 2 ? throw std::runtime_error("the third one fails") : "done";
    };
    try {
        run_in_processes(5, failing, {.jobs = 2, .stop_requested = [] { return false; }, .report = [](int, int) {}});
        ADD_FAILURE() << "nothing was thrown";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "the third one fails");
    }
    int done = 0;
    const auto results = run_in_processes(
        5, [](int) { return std::string("done"); },
        {.jobs = 1, .stop_requested = [&] { return done >= 2; }, .report = [&](int count, int) { done = count; }});
    EXPECT_FALSE(results.back());
    EXPECT_EQ(results.front(), "done");
}

}  // namespace
