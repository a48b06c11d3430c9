#include "components/hostdata/store/Store.h"

#include "components/hostdata/store/Schema.h"
#include "components/hostdata/store/StoreFiles.h"

namespace tollvane::hostdata {

void Store::open() {
    if (fileExists(path_))
        read([](Database&) {});
}

Database& Store::opened() {
    if (!database_) {
        makeFoldersOf(path_);
        auto database = std::make_unique<Database>(path_);
        prepareSchema(*database);
        database_ = std::move(database);
    }
    return *database_;
}

} // namespace tollvane::hostdata
