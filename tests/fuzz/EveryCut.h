// Files of the fuzz targets that are cut off at every length, where the fuzzer only tries some.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace tollvane::test {

struct CutFile {
    std::string name;
    std::size_t size;        ///< it is cut to every length below this
    std::size_t shortStride; ///< which share of the lengths the short form tries
    /// Ends the process when a promise is broken.
    std::function<void(std::size_t length)> judge;
};

/// Those of the target.
std::vector<CutFile> cutFiles();

} // namespace tollvane::test
