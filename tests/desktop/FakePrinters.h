#pragma once

#include "platform/Error.h"
#include "platform/Printer.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tollvane::test {

class FaultPlan;

/// A text as it was printed, with the upper left corner of its place.
struct PrintedText {
    double x = 0;
    double y = 0;
    PrintFont font;
    std::string text;
};

struct PrintedLine {
    double fromX = 0;
    double fromY = 0;
    double toX = 0;
    double toY = 0;

    friend bool operator==(const PrintedLine&, const PrintedLine&) = default;
};

struct PrintedDocument {
    std::string name;
    std::vector<PrintedText> texts; ///< empty lines are not noted
    std::vector<PrintedLine> lines;
    bool opened = false;
    bool ended = false;
    bool givenBack = false; ///< the program has let go of the printer

    /// "x y font points style: text" for every text, in the order of printing.
    std::vector<std::string> rows() const;
    /// The same without place and font.
    std::vector<std::string> words() const;
};

/// A printer that notes what is printed. Its letters are all half as wide as the font is high, bold
/// ones a tenth wider, and a line is 1.15 times as high as the font.
class FakePrinters : public Printers {
public:
    explicit FakePrinters(FaultPlan& faults) : faults_(faults) {}

    std::unique_ptr<PrintJob> defaultPrinter(const std::string& documentName) override;

    /// The document that was printed last; raises when there is none.
    const PrintedDocument& last() const;
    /// Jobs that the program has not given back.
    std::size_t openJobs() const;

    static double letterWidth(const PrintFont& font);
    static double lineHeight(const PrintFont& font);

    /// The printable area: A4 with margins of a quarter inch unless set otherwise.
    double left = 0;
    double width = 11'186;
    double height = 16'118;
    /// Raised instead of giving a printer.
    std::optional<Error> missing;
    /// Raised when the document is opened, as by a driver.
    std::optional<Error> refusal;
    /// Raised at the end of the document.
    std::optional<Error> refusalAtEnd;
    /// Runs before every text.
    std::function<void()> whilePrinting;
    std::vector<std::shared_ptr<PrintedDocument>> documents;

private:
    FaultPlan& faults_;
};

} // namespace tollvane::test
