// The component's memory across a crash: an operation is noted here before the processor is asked,
// again when it has answered, and a last time when the log has its line.
#pragma once

#include "components/charge/core/OperationNote.h"
#include "components/charge/core/RecordFile.h"

#include <optional>
#include <string>
#include <vector>

namespace tollvane::charge {

struct OpenOperation {
    OperationNote note;
    std::optional<ProcessorAnswer> answer;
};

class Journal {
public:
    Journal(FileStore& files, const FilePath& path);

    // What is not closed, oldest first. Raises FileFailure and failurenumber::damagedFile.
    std::vector<OpenOperation> load();

    // On the disk when they return. Raise FileFailure.
    void open(const OperationNote& note);
    void answered(const std::string& key, const ProcessorAnswer& answer);
    void close(const std::string& key);

    // Starts afresh when it has grown long. Only when load found nothing open.
    void shorten();

private:
    RecordFile file_;
};

} // namespace tollvane::charge
