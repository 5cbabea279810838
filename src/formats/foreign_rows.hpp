// What files of other formats give: interactions and knockout pairs, one after another, and
// an account of the lines that gave none.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "formats/cell_values.hpp"
#include "formats/reading_watch.hpp"

struct interaction_row {
    std::string_view first;
    std::string_view second;
    bool is_directed = false;          // first to second
    std::optional<double> confidence;  // the higher the surer
    long line = 0;
};

struct knockout_row {
    std::string_view cause;
    std::string_view effect;
    long line = 0;
};

// How many lines, and the first of them.
struct line_tally {
    static constexpr std::size_t shown = 10;
    long count = 0;
    std::vector<long> first;

    void add(long line);
};

// One file, as it was read.
struct source_account {
    std::string path;
    std::string format;
    std::string sha256;  // of the file as it is, compressed or not
    long rows = 0;       // interactions or pairs that it holds, taken or not
    long taken = 0;
    std::map<std::string, line_tally> dropped;      // by reason
    std::map<std::string, line_tally> assumptions;  // what was made of lines that leave it open
};

enum class name_kind { symbol, id, systematic };

struct interaction_options {
    std::string format = {};                          // empty: found by what the file holds
    std::map<std::string, std::string> columns = {};  // first, second, direction, confidence
    std::optional<double> min_confidence = {};
    std::string organism = {};               // taxon number; empty: any
    std::vector<std::string> directed = {};  // words that make an interaction directed, in place of the usual ones
    bool is_directed_by_default = false;     // where a file says nothing of direction
    name_kind names = name_kind::symbol;     // where a format has several
    bool with_genetic = false;               // BioGRID: genetic interactions as well as physical ones
    std::vector<std::string> aliases = {};   // STRING: files of names
    std::string alias_source = {};           // STRING: the source of names in them; empty: the best there is
    reading_watch watch = {};
};

struct knockout_options {
    std::string format = {};                          // delimited or matrix; empty: delimited
    std::map<std::string, std::string> columns = {};  // cause, effect
    std::vector<condition> conditions = {};           // all must be met; in a matrix, on "value"
    reading_watch watch = {};
};

using interaction_sink = std::function<void(const interaction_row&)>;
using knockout_sink = std::function<void(const knockout_row&)>;

// Hands the file's interactions to the sink, in file order. Throws unusable_input, with
// file, line, field and reason, for what cannot be read.
source_account read_interactions(const std::string& path, const interaction_options& options,
                                 const interaction_sink& take);
// The same with knockout pairs.
source_account read_knockout_pairs(const std::string& path, const knockout_options& options, const knockout_sink& take);
