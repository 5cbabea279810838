// Between a format's reader and the sink: what all formats do with a row, in one place.
#pragma once

#include "formats/foreign_rows.hpp"
#include "formats/text_source.hpp"

class interaction_taker {
 public:
    interaction_taker(const interaction_options& options, const interaction_sink& sink, source_account& account)
        : options_(options), sink_(sink), account_(account) {}

    // Hands the row on, unless it lacks a name, joins a protein with itself, or is not sure
    // enough; says which.
    void take(const interaction_row& row);
    // The same of a row that a reader itself leaves out.
    void drop(long line, const std::string& reason);
    // Notes what was made of a row that leaves its direction open, say.
    void assume(long line, const std::string& what) { account_.assumptions[what].add(line); }

    // Whether a word of the file, a relation or a method, is one that the user, or for want
    // of that `is_usually_directed`, calls directed; noted.
    bool is_directed(std::string_view word, bool is_usually_directed, long line);

    // Throws unusable_input when the user asks for what the format has not.
    void need_confidence(const text_source& source, const std::string& why_not) const;
    void need_organism(const text_source& source, const std::string& why_not) const;

    const interaction_options& options() const { return options_; }
    source_account& account() { return account_; }

 private:
    const interaction_options& options_;
    const interaction_sink& sink_;
    source_account& account_;
};

// One for each format; `source` stands at the first line.
void read_sif(text_source& source, interaction_taker& taker);
void read_delimited(text_source& source, interaction_taker& taker);
void read_psi_mitab(text_source& source, interaction_taker& taker);
void read_omnipath(text_source& source, interaction_taker& taker);
void read_biogrid(text_source& source, interaction_taker& taker);
void read_string_links(text_source& source, interaction_taker& taker);
