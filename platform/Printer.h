#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace tollvane {

struct PrintFont {
    std::string name = "Arial";
    int points = 10;
    bool bold = false;
    bool italic = false;

    friend bool operator==(const PrintFont&, const PrintFont&) = default;
};

/// Errors of a printer that the program knows by number; a driver adds its own.
namespace errornumber {
inline constexpr long printerError = 482;
inline constexpr long noPrinter = 484;
inline constexpr long cancelled = 32755;
} // namespace errornumber

/// A page that is drawn for a printer, from its upper left corner on. All measures are twips; what
/// lies outside of the printable area is not printed.
/// A call raises what keeps the printer from it: 482 a failure that the printer tells the operator
/// itself, 32755 the operator's cancelling, otherwise the driver's number and text. A document that
/// is dropped before its end is not printed.
class PrintJob {
public:
    PrintJob() = default;
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;
    virtual ~PrintJob() = default;

    /// The printable area.
    virtual double left() = 0;
    virtual double width() = 0;
    virtual double height() = 0;

    virtual void setFont(const PrintFont& font) = 0;
    virtual double currentX() const = 0;
    virtual void setCurrentX(double x) = 0;
    virtual double currentY() const = 0;
    virtual void setCurrentY(double y) = 0;
    /// Of a text in the current font; the height is that of a line, also for an empty text.
    virtual double textWidth(std::string_view text) = 0;
    virtual double textHeight(std::string_view text) = 0;

    /// Prints a text with its upper left corner at the current position, which then stands at the
    /// left origin of the next line. The first one opens the document at the printer.
    virtual void print(std::string_view text) = 0;
    void printEmptyLine() { print({}); }
    /// A thin black line; the current position then stands at its end.
    virtual void drawLine(double fromX, double fromY, double toX, double toY) = 0;
    /// Hands the document over to the printer. Nothing may be called afterwards.
    virtual void endDocument() = 0;
};

class Printers {
public:
    virtual ~Printers() = default;
    /// A new document for the default printer: one page, upright, everything else as the printer is
    /// set. Queues show it under its name. Raises 484 when there is no default printer.
    virtual std::unique_ptr<PrintJob> defaultPrinter(const std::string& documentName) = 0;
};

} // namespace tollvane
