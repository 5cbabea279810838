#include "checking/findings.hpp"

bool is_loss(drop_reason reason) {
    return reason <= drop_reason::unknown_name;
}

const char* name_of(drop_reason reason) {
    constexpr const char* names[] = {"not_read", "no_line_feed",     "name_too_long",
                                     "runs_on",  "unknown_name",     "self_loop",
                                     "repeated", "test_interaction", "directed_interaction"};
    return names[static_cast<int>(reason)];
}

const char* describe(drop_reason reason) {
    constexpr const char* words[] = {"not read, because there are too many proteins",
                                     "last line without a line feed",
                                     "name of more than 19 characters",
                                     "a name runs on into the next line, as no blank ends it",
                                     "unknown name",
                                     "interaction of a protein with itself",
                                     "repeated",
                                     "already a test interaction",
                                     "already of known direction, which wins"};
    return words[static_cast<int>(reason)];
}

const char* name_of(hazard what) {
    constexpr const char* names[] = {
        "not_opened", "utf16",         "byte_order_mark", "too_many_proteins", "empty_line",    "carriage_return",
        "tab",        "null_byte",     "blank_in_name",   "leading_blank",     "doubled_blank", "ends_at_name",
        "no_number",  "repeated_name", "not_drawable",    "first_name_missed"};
    return names[static_cast<int>(what)];
}

const char* describe(hazard what) {
    constexpr const char* words[] = {"cannot be opened",
                                     "is UTF-16; a run reads bytes, so save it as plain ASCII",
                                     "begins with a byte order mark, which becomes part of the first name",
                                     "more than 9,999 proteins: a run reads no other file",
                                     "empty line",
                                     "carriage return (Windows line end), which stays in a name",
                                     "tab, which separates nothing and becomes part of a name",
                                     "null byte, which cuts the name or number short",
                                     "blank in a name, so that no other file can name it",
                                     "leading blank, which ends an empty first name",
                                     "doubled blank, which makes the second name empty",
                                     "ends at a name with no blank behind it, so that the name runs on",
                                     "no number at the start of the confidence, which is read as 0",
                                     "a name that stands above already; its second protein is never found",
                                     "a name that the drawings cannot bear: Graphviz refuses or changes it",
                                     "the alphabetically first of 2 or 3 proteins is never found"};
    return words[static_cast<int>(what)];
}

const char* name_of(no_path why) {
    constexpr const char* names[] = {
        "", "same_protein", "no_outgoing", "no_entering", "different_components", "no_directed_path"};
    return names[static_cast<int>(why)];
}

const char* describe(no_path why) {
    constexpr const char* words[] = {"",
                                     "cause and effect are one protein",
                                     "no interaction leads away from the cause",
                                     "no interaction leads to the effect",
                                     "cause and effect are in parts of the network that nothing joins",
                                     "interactions of known direction bar every way"};
    return words[static_cast<int>(why)];
}

long input_check::lines_lost() const {
    long lost = 0;
    for (const file_check& file : files) {
        for (const auto& [reason, lines] : file.dropped) {
            lost += is_loss(reason) ? static_cast<long>(lines.size()) : 0;
        }
    }
    return lost;
}
