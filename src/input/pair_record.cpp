#include "input/pair_record.hpp"

#include "model/network_graph.hpp"

namespace {

enum class name_end { blank, end_of_file, too_long };

name_end read_name(text_file& file, std::string& name) {
    constexpr std::size_t longest = max_name_length;
    const std::string_view rest = std::string_view(file.text).substr(file.position);
    const std::size_t length = rest.substr(0, longest + 1).find(' ');
    if (length == std::string_view::npos) {
        return rest.size() > longest ? name_end::too_long : name_end::end_of_file;
    }
    name = as_c_string(rest.substr(0, length));
    file.position += length + 1;
    return name_end::blank;
}

void refuse_record(text_file& file, std::size_t record_start) {
    // More than is shown, and enough to find the blank within it.
    const std::string_view field = std::string_view(file.text).substr(file.position, 64);
    report_long_name(file, record_start, field.substr(0, field.find(' ')));
    file.position = record_start;
    bool ended;
    take_line(file, ended);
}

}  // namespace

bool read_pair_record(text_file& file, pair_record& record) {
    while (true) {
        record.start = file.position;
        name_end end = read_name(file, record.first);
        if (end == name_end::blank) {
            end = read_name(file, record.second);
        }
        if (end == name_end::end_of_file) {
            return false;
        }
        if (end == name_end::blank) {
            record.rest = as_c_string(take_line(file, record.line_ended));
            return true;
        }
        refuse_record(file, record.start);
    }
}
