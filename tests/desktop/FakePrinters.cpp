#include "tests/desktop/FakePrinters.h"

#include "tests/desktop/FaultPlan.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace tollvane::test {

namespace {

// Of a font of one point, in twips.
constexpr double kLetterWidth = 10;
constexpr double kBoldLetterWidth = 11;
constexpr double kLineHeight = 23;

class FakePrintJob : public PrintJob {
public:
    FakePrintJob(FakePrinters& printers, FaultPlan& faults,
                 std::shared_ptr<PrintedDocument> document)
        : printers_(printers), faults_(faults), document_(std::move(document)), x_(printers.left) {}
    ~FakePrintJob() override { document_->givenBack = true; }

    double left() override {
        hit("left");
        return printers_.left;
    }
    double width() override {
        hit("width");
        return printers_.width;
    }
    double height() override {
        hit("height");
        return printers_.height;
    }
    void setFont(const PrintFont& font) override {
        hit("setFont");
        font_ = font;
    }
    double currentX() const override { return x_; }
    void setCurrentX(double x) override {
        hit("setCurrentX");
        x_ = x;
    }
    double currentY() const override { return y_; }
    void setCurrentY(double y) override {
        hit("setCurrentY");
        y_ = y;
    }
    double textWidth(std::string_view text) override {
        hit("textWidth");
        return static_cast<double>(text.size()) * FakePrinters::letterWidth(font_);
    }
    double textHeight(std::string_view) override {
        hit("textHeight");
        return FakePrinters::lineHeight(font_);
    }
    void print(std::string_view text) override;
    void drawLine(double fromX, double fromY, double toX, double toY) override {
        hit("drawLine");
        document_->lines.push_back({fromX, fromY, toX, toY});
        x_ = toX;
        y_ = toY;
    }
    void endDocument() override;

private:
    void hit(std::string_view call) {
        if (document_->ended) {
            throw std::logic_error("the document has ended");
        }
        faults_.hit(Port::printer, call);
    }

    FakePrinters& printers_;
    FaultPlan& faults_;
    std::shared_ptr<PrintedDocument> document_;
    PrintFont font_;
    double x_ = 0;
    double y_ = 0;
};

void FakePrintJob::print(std::string_view text) {
    hit("print");
    if (printers_.whilePrinting) {
        printers_.whilePrinting();
    }
    if (!document_->opened && printers_.refusal) {
        throw *printers_.refusal;
    }
    document_->opened = true;
    if (!text.empty()) {
        document_->texts.push_back({x_, y_, font_, std::string(text)});
    }
    x_ = printers_.left;
    y_ += FakePrinters::lineHeight(font_);
}

void FakePrintJob::endDocument() {
    hit("endDocument");
    if (printers_.refusalAtEnd) {
        throw *printers_.refusalAtEnd;
    }
    document_->ended = true;
}

} // namespace

std::vector<std::string> PrintedDocument::rows() const {
    std::vector<std::string> rows;
    for (const PrintedText& text : texts) {
        std::ostringstream row;
        row << text.x << " " << text.y << " " << text.font.name << " " << text.font.points
            << (text.font.bold ? " bold" : "") << (text.font.italic ? " italic" : "") << ": "
            << text.text;
        rows.push_back(row.str());
    }
    return rows;
}

std::vector<std::string> PrintedDocument::words() const {
    std::vector<std::string> words;
    std::ranges::transform(texts, std::back_inserter(words), &PrintedText::text);
    return words;
}

double FakePrinters::letterWidth(const PrintFont& font) {
    return font.points * (font.bold ? kBoldLetterWidth : kLetterWidth);
}

double FakePrinters::lineHeight(const PrintFont& font) {
    return font.points * kLineHeight;
}

std::unique_ptr<PrintJob> FakePrinters::defaultPrinter(const std::string& documentName) {
    faults_.hit(Port::printer, "defaultPrinter");
    if (missing) {
        throw *missing;
    }
    documents.push_back(std::make_shared<PrintedDocument>());
    documents.back()->name = documentName;
    return std::make_unique<FakePrintJob>(*this, faults_, documents.back());
}

const PrintedDocument& FakePrinters::last() const {
    if (documents.empty()) {
        throw std::runtime_error("nothing was printed");
    }
    return *documents.back();
}

std::size_t FakePrinters::openJobs() const {
    return static_cast<std::size_t>(std::ranges::count_if(
        documents, [](const auto& document) { return !document->givenBack; }));
}

} // namespace tollvane::test
