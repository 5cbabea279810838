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

bool is_cut(text_file& file) {
    constexpr int records_at_once = 4096;
    if (file.records_until_asked-- > 0) {
        return false;
    }
    file.records_until_asked = records_at_once;
    return file.cut_requested();
}

}  // namespace

record_end take_pair_record(text_file& file, pair_record& record, std::string_view& long_name) {
    record.start = file.position;
    name_end end = read_name(file, record.first);
    if (end == name_end::blank) {
        end = read_name(file, record.second);
    }
    if (end == name_end::end_of_file) {
        return record_end::file_ended;
    }
    if (end == name_end::blank) {
        record.rest = as_c_string(take_line(file, record.line_ended));
        return record_end::whole;
    }
    // More than is shown, and enough to find the blank within it.
    const std::string_view field = std::string_view(file.text).substr(file.position, 64);
    long_name = field.substr(0, field.find(' '));
    file.position = record.start;
    bool ended;
    take_line(file, ended);
    return record_end::name_too_long;
}

bool read_pair_record(text_file& file, pair_record& record) {
    while (!is_cut(file)) {
        std::string_view long_name;
        const record_end end = take_pair_record(file, record, long_name);
        if (end != record_end::name_too_long) {
            return end == record_end::whole;
        }
        report_long_name(file, record.start, long_name);
    }
    return false;
}
