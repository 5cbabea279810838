#include "answer/input_files.hpp"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "tables/unusable_input.hpp"

const text_file& input_files::file(const std::string& name) const {
    const auto found = std::find(input_file_names.begin(), input_file_names.end(), name);
    if (found == input_file_names.end()) {
        throw std::logic_error("there is no input file " + name);
    }
    return files.at(static_cast<std::size_t>(found - input_file_names.begin()));
}

input_opener input_files::opener() const {
    return [this](const char* name) { return file(name); };
}

input_files read_input_files(std::string folder) {
    if (!folder.ends_with('/')) {
        folder += '/';
    }
    std::error_code error;
    if (!std::filesystem::is_directory(folder, error)) {
        throw unusable_input(folder + ": there is no such folder");
    }
    input_files input{folder, {}};
    for (std::size_t i = 0; i < input.files.size(); ++i) {
        const std::string path = folder + input_file_names[i];
        input.files[i] = open_text_file(path);
        const bool may_be_missing = std::string_view(input_file_names[i]) == "test" && !std::filesystem::exists(path);
        if (!input.files[i].opened && !may_be_missing) {
            throw unusable_input(path + ": cannot be read");
        }
    }
    return input;
}
