#include "platform/Error.h"
#include "tests/proof/faults/FaultyPorts.h"

#include <utility>

namespace tollvane::test {

namespace {

class FaultyPrintJob : public PrintJob {
public:
    FaultyPrintJob(std::unique_ptr<PrintJob> inner, Sabotage& sabotage)
        : inner_(std::move(inner)), sabotage_(sabotage) {}

    double left() override { return hit("left"), inner_->left(); }
    double width() override { return hit("width"), inner_->width(); }
    double height() override { return hit("height"), inner_->height(); }
    void setFont(const PrintFont& font) override { hit("setFont"), inner_->setFont(font); }
    double currentX() const override { return inner_->currentX(); }
    void setCurrentX(double x) override { hit("setCurrentX"), inner_->setCurrentX(x); }
    double currentY() const override { return inner_->currentY(); }
    void setCurrentY(double y) override { hit("setCurrentY"), inner_->setCurrentY(y); }
    double textWidth(std::string_view text) override {
        return hit("textWidth"), inner_->textWidth(text);
    }
    double textHeight(std::string_view text) override {
        return hit("textHeight"), inner_->textHeight(text);
    }
    void print(std::string_view text) override { hit("print"), inner_->print(text); }
    void drawLine(double fromX, double fromY, double toX, double toY) override {
        hit("drawLine"), inner_->drawLine(fromX, fromY, toX, toY);
    }
    void endDocument() override { hit("endDocument"), inner_->endDocument(); }

private:
    void hit(const char* call) {
        if (const Mode* mode = sabotage_.strike(Callee::printer, call)) {
            throw Error(mode->number, "Printer", mode->description);
        }
    }

    std::unique_ptr<PrintJob> inner_;
    Sabotage& sabotage_;
};

} // namespace

std::unique_ptr<PrintJob> FaultyPrinters::defaultPrinter(const std::string& documentName) {
    if (const Mode* mode = sabotage_.strike(Callee::printer, "defaultPrinter")) {
        throw Error(mode->number, "Printer", mode->description);
    }
    return std::make_unique<FaultyPrintJob>(inner_.defaultPrinter(documentName), sabotage_);
}

} // namespace tollvane::test
