// What an installation consists of, as the version resources of its files tell it.
#pragma once

#include <string>
#include <vector>

namespace tollvane::about {

struct ProductFile {
    std::wstring description;
    std::wstring fileName;
    std::wstring version; // "1.0.0"
};

struct Product {
    std::wstring name;
    std::wstring version; // empty when the program is not beside this library
    std::vector<ProductFile> components;
};

// The program and its neighbours in the folder of this library, by file name. Files of other makers
// and files without a version are left out.
[[nodiscard]] Product readProduct();

} // namespace tollvane::about
