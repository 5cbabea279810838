#include "importing/import_watch.hpp"

#include <algorithm>
#include <filesystem>

#include "importing/import_plan.hpp"

namespace {

// 0 where there is no such file, which whoever opens it will tell.
std::uint64_t size_of(const std::string& path) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    return error ? 0 : size;
}

}  // namespace

reading_progress::reading_progress(const import_plan& plan, const import_watch& watch) : watch_(watch) {
    for (const auto* paths : {&plan.interaction_files, &plan.interactions.aliases, &plan.knockout_files}) {
        for (const std::string& path : *paths) {
            ++to_come_[path];
            all_ += size_of(path);
        }
    }
}

void reading_progress::set(const std::string& path, std::uint64_t position) {
    if (position == 0 && --to_come_[path] < 0) {
        all_ += size_of(path);
    }
    done_ += position == 0 ? 0 : position - positions_[path];
    positions_[path] = position;
    watch_("reading, in kB", static_cast<int>(std::min(done_, all_) / 1000), static_cast<int>(all_ / 1000));
}
