// Files in memory that can fail, or lose their power, at any point.
#pragma once

#include "components/charge/core/FileStore.h"

#include <map>
#include <string>

namespace tollvane::charge {

// The power went off: nothing changes any more until heal().
struct PowerCut {};

class MemoryFiles final : public FileStore {
public:
    enum class Fault {
        None,
        Refuse,    // nothing is written, the call raises
        Short,     // half of the bytes are written, the call raises
        CutBefore, // the power goes off before anything is written
        CutMidway, // ... with half of the bytes written
        CutAfter,  // ... with all of them written
    };

    using FileStore::read;
    std::string read(const FilePath& file, std::uint64_t from) override {
        if (unreadable_ == file)
            throw FileFailure("The disk cannot be read.");
        const auto found = contents.find(file.plainText());
        if (found == contents.end() || from >= found->second.size())
            return {};
        return found->second.substr(from);
    }
    std::uint64_t size(const FilePath& file) override {
        const auto found = contents.find(file.plainText());
        return found == contents.end() ? 0 : found->second.size();
    }
    void append(const FilePath& file, std::string_view bytes) override {
        change(file, [&](std::string& content, std::size_t part) {
            content += bytes.substr(0, bytes.size() * part / 2);
        });
    }
    void truncate(const FilePath& file, std::uint64_t size) override {
        change(file, [&](std::string& content, std::size_t part) {
            if (part == 2)
                content.resize(size);
        });
    }
    std::unique_ptr<Lock> lock(const FilePath&) override {
        ++locks;
        return std::make_unique<Lock>();
    }

    // The change with this number (the first is 1) and, when repeated is set, every later one
    // fails. With a file given, only changes of this file count.
    void failAt(int number, Fault fault, bool repeated = false, const FilePath& file = {}) {
        changes = 0;
        failing_ = number;
        fault_ = fault;
        repeated_ = repeated;
        file_ = file;
    }
    void heal() {
        failAt(0, Fault::None);
        dark_ = false;
    }
    void makeUnreadable(const FilePath& file) { unreadable_ = file; }

    bool anyContains(const std::string& text) const {
        for (const auto& [name, content] : contents) {
            if (content.find(text) != std::string::npos)
                return true;
        }
        return false;
    }

    std::map<std::string, std::string> contents;
    int changes = 0;
    int locks = 0;

private:
    template <class Change>
    void change(const FilePath& file, Change apply) {
        if (dark_)
            throw PowerCut();
        std::string& content = contents[file.plainText()];
        if (file_.empty() || file_ == file)
            ++changes;
        const bool hit = failing_ > 0 && (file_.empty() || file_ == file) &&
                         (repeated_ ? changes >= failing_ : changes == failing_);
        if (!hit) {
            apply(content, 2);
            return;
        }
        if (fault_ == Fault::Short || fault_ == Fault::CutMidway)
            apply(content, 1);
        if (fault_ == Fault::CutAfter)
            apply(content, 2);
        if (fault_ == Fault::Refuse || fault_ == Fault::Short)
            throw FileFailure("There is not enough space on the disk.");
        dark_ = true;
        throw PowerCut();
    }

    bool dark_ = false;
    int failing_ = 0;
    Fault fault_ = Fault::None;
    bool repeated_ = false;
    FilePath file_;
    FilePath unreadable_ = "none";
};

} // namespace tollvane::charge
