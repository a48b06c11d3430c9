#include "components/hostdata/store/Store.h"

#include "components/hostdata/store/Schema.h"

#include <filesystem>

namespace tollvane::hostdata {

void Store::open() {
    read([](Database&) {});
}

Database& Store::opened() {
    if (!database_) {
        const std::u8string path(path_.begin(), path_.end());
        std::error_code ignored; // the open below says what is wrong
        std::filesystem::create_directories(std::filesystem::path(path).parent_path(), ignored);
        auto database = std::make_unique<Database>(path_);
        prepareSchema(*database);
        database_ = std::move(database);
    }
    return *database_;
}

} // namespace tollvane::hostdata
