// Knockout pairs: a table with a row for each pair, or a matrix with a row for each effect
// and a column for each cause.
#include <algorithm>

#include "formats/delimited_text.hpp"
#include "formats/foreign_rows.hpp"
#include "tables/sha256.hpp"
#include "tables/unusable_input.hpp"

namespace {

bool is_number(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

class pair_taker {
 public:
    pair_taker(const delimited_table& table, const knockout_options& options, const knockout_sink& sink,
               source_account& account)
        : table_(table), options_(options), sink_(sink), account_(account) {}

    // The first condition that the cells fail to meet is the reason.
    bool meets_all(const std::vector<std::string>& cells, const std::vector<std::size_t>& columns) {
        for (std::size_t i = 0; i < options_.conditions.size(); ++i) {
            const condition& threshold = options_.conditions[i];
            const std::string& cell = cells[columns[i]];
            const std::optional<bool> met = meets(threshold, cell);
            if (!met) {
                table_.source().fail_at(table_.line(),
                                        "field '" + table_.header()[columns[i]] + "': '" + cell + "' is not a number");
            }
            if (!*met) {
                drop(is_missing(cell) ? "no value in '" + threshold.column + "'" : "not " + threshold.text);
                return false;
            }
        }
        return true;
    }

    void take(std::string_view cause, std::string_view effect) {
        if (is_missing_name(cause) || is_missing_name(effect)) {
            drop("a name is missing");
        } else if (cause == effect) {
            drop("cause and effect are one protein");
        } else {
            ++account_.rows;
            ++account_.taken;
            sink_({.cause = cause, .effect = effect, .line = table_.line()});
        }
    }

 private:
    void drop(const std::string& reason) {
        ++account_.rows;
        account_.dropped[reason].add(table_.line());
    }

    const delimited_table& table_;
    const knockout_options& options_;
    const knockout_sink& sink_;
    source_account& account_;
};

const std::vector<std::string>& cause_words() {
    static const std::vector<std::string> words = {
        "cause",   "source",      "knockout",     "ko",           "knockedout", "deletion",
        "deleted", "deletedgene", "knockoutgene", "perturbation", "perturbed",  "perturbedgene",
        "mutant",  "regulator",   "tf",           "from",         "first"};
    return words;
}

const std::vector<std::string>& effect_words() {
    static const std::vector<std::string> words = {"effect",     "target",   "affected", "affectedgene",
                                                   "responder",  "response", "measured", "measuredgene",
                                                   "downstream", "to",       "second",   "gene"};
    return words;
}

// Two columns whose header says nothing are two columns of names, from the first line on.
bool has_header(text_source& source, const knockout_options& options) {
    const auto cause = options.columns.find("cause");
    if (cause != options.columns.end()) {
        return !is_number(cause->second);
    }
    const std::vector<std::string> line = source.peek(1);
    if (line.empty() || !options.conditions.empty()) {
        return true;
    }
    const char separator = guess_separator(line[0]);
    std::vector<std::string> cells;
    for (std::string_view rest = line[0];; rest.remove_prefix(rest.find(separator) + 1)) {
        cells.push_back(plain_word(rest.substr(0, rest.find(separator))));
        if (rest.find(separator) == std::string_view::npos) {
            break;
        }
    }
    // One word alone may be a protein: TF is transferrin.
    const auto is_one_of = [](const std::string& word, const std::vector<std::string>& words) {
        return std::find(words.begin(), words.end(), word) != words.end();
    };
    return cells.size() != 2 || (is_one_of(cells[0], cause_words()) && is_one_of(cells[1], effect_words())) ||
           (is_one_of(cells[1], cause_words()) && is_one_of(cells[0], effect_words()));
}

void read_table_of_pairs(text_source& source, const knockout_options& options, const knockout_sink& sink,
                         source_account& account) {
    const bool named = has_header(source, options);
    delimited_table table(source, named);
    if (!named && options.columns.empty()) {
        account.assumptions["no header is known, so that the first line is a pair"].add(1);
    }
    std::optional<std::size_t> cause = table.find_asked(options.columns, "cause", cause_words());
    std::optional<std::size_t> effect = table.find_asked(options.columns, "effect", effect_words());
    const bool is_two = table.header().size() == 2 || !named;
    if ((!cause || !effect || cause == effect) && is_two && options.columns.empty()) {
        cause = 0;
        effect = 1;
    }
    if (!cause || !effect || cause == effect) {
        source.fail_at(1, "no column is known to name the " + std::string(cause ? "effect" : "cause") +
                              "; name them by --knockout-columns cause=...,effect=... There are " +
                              table.list_columns());
    }
    std::vector<std::size_t> columns;
    for (const condition& threshold : options.conditions) {
        const std::optional<std::size_t> column = table.find(threshold.column);
        if (!column) {
            source.fail_at(1, "there is no column '" + threshold.column + "' for '" + threshold.text + "'; there are " +
                                  table.list_columns());
        }
        columns.push_back(*column);
    }
    pair_taker taker(table, options, sink, account);
    std::vector<std::string> cells;
    while (table.next(cells)) {
        if (cells.size() <= std::max(*cause, *effect)) {
            source.fail_at(table.line(), "there is no column " + std::to_string(std::max(*cause, *effect) + 1));
        }
        if (taker.meets_all(cells, columns)) {
            taker.take(trimmed(cells[*cause]), trimmed(cells[*effect]));
        }
    }
}

void read_matrix(text_source& source, const knockout_options& options, const knockout_sink& sink,
                 source_account& account) {
    for (const condition& threshold : options.conditions) {
        if (threshold.column != "value") {
            throw unusable_input("condition '" + threshold.text + "': the cells of a matrix are called 'value'");
        }
    }
    if (options.conditions.empty()) {
        throw unusable_input(source.path() + ": a matrix needs a threshold, such as --where '|value|>=1'");
    }
    delimited_table table(source, true);
    pair_taker taker(table, options, sink, account);
    std::vector<std::string> cells;
    while (table.next(cells)) {
        for (std::size_t cause = 1; cause < cells.size(); ++cause) {
            if (taker.meets_all(cells, std::vector<std::size_t>(options.conditions.size(), cause))) {
                taker.take(trimmed(table.header()[cause]), trimmed(cells[0]));
            }
        }
    }
}

}  // namespace

source_account read_knockout_pairs(const std::string& path, const knockout_options& options,
                                   const knockout_sink& take) {
    text_source source(path, options.watch);
    source_account account;
    account.path = path;
    account.format = options.format.empty() ? "delimited" : options.format;
    if (account.format == "matrix") {
        read_matrix(source, options, take, account);
    } else if (account.format == "delimited") {
        read_table_of_pairs(source, options, take, account);
    } else {
        throw unusable_input("there is no format '" + account.format +
                             "' of knockouts; there are delimited and matrix");
    }
    account.sha256 = sha256_of_file(path);
    return account;
}
