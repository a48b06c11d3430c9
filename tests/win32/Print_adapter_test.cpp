// The printer's adapter: what it draws, measured on a metafile, and what its failures are called.

#include "platform/win32/PrintCanvas.h"
#include "platform/win32/Win32PrintJob.h"
#include "platform/win32/Win32Printers.h"

#include <windows.h>
#include <winspool.h>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <vector>

namespace tollvane::test {
namespace {

using win32::DeviceContextHandle;
using win32::PrintCanvas;
using win32::Win32PrintJob;

constexpr double kTwipsPerInch = 1'440;

DeviceContextHandle memoryContext() {
    return DeviceContextHandle(CreateCompatibleDC(nullptr));
}

double twipsPerPixel() {
    const DeviceContextHandle screen = memoryContext();
    return kTwipsPerInch / GetDeviceCaps(screen.get(), LOGPIXELSX);
}

struct DrawnText {
    POINT at;
    std::wstring text;
};

struct Drawing {
    std::vector<DrawnText> texts;
    std::vector<LOGFONTW> fonts;
    std::vector<POINT> lineEnds;
    std::vector<POINT> lineStarts;
};

int CALLBACK noteRecord(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM parameter) {
    auto& drawing = *reinterpret_cast<Drawing*>(parameter);
    const auto* bytes = reinterpret_cast<const char*>(record);
    if (record->iType == EMR_EXTTEXTOUTW) {
        const auto* text = reinterpret_cast<const EMREXTTEXTOUTW*>(record);
        drawing.texts.push_back({{text->emrtext.ptlReference.x, text->emrtext.ptlReference.y},
                                 {reinterpret_cast<const wchar_t*>(bytes + text->emrtext.offString),
                                  text->emrtext.nChars}});
    } else if (record->iType == EMR_EXTCREATEFONTINDIRECTW) {
        const auto* font = reinterpret_cast<const EMREXTCREATEFONTINDIRECTW*>(record);
        drawing.fonts.push_back(font->elfw.elfLogFont);
    } else if (record->iType == EMR_MOVETOEX) {
        const auto* move = reinterpret_cast<const EMRMOVETOEX*>(record);
        drawing.lineStarts.push_back({move->ptl.x, move->ptl.y});
    } else if (record->iType == EMR_LINETO) {
        const auto* line = reinterpret_cast<const EMRLINETO*>(record);
        drawing.lineEnds.push_back({line->ptl.x, line->ptl.y});
    }
    return 1;
}

/// What a canvas draws, as a metafile notes it in pixels of the screen.
Drawing drawn(const std::function<void(PrintCanvas&)>& draw) {
    DeviceContextHandle metafile(CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr));
    const HDC context = metafile.get();
    HENHMETAFILE closed = nullptr;
    {
        PrintCanvas canvas(std::move(metafile));
        draw(canvas);
        closed = CloseEnhMetaFile(context);
    }
    Drawing drawing;
    EnumEnhMetaFile(nullptr, closed, noteRecord, &drawing, nullptr);
    DeleteEnhMetaFile(closed);
    return drawing;
}

Error raised(const std::function<void()>& body) {
    try {
        body();
    } catch (const Error& error) {
        return error;
    }
    return {0, "", "nothing was raised"};
}

TEST(PrintCanvas, PutsATextOnThePixelNearestToItsPlace) {
    const double pixel = twipsPerPixel();
    const Drawing drawing = drawn([&](PrintCanvas& canvas) {
        canvas.drawText(0, 0, "corner");
        canvas.drawText(20.4 * pixel, 30.6 * pixel, "near");
        canvas.drawText(-3 * pixel, pixel / 2, "left of the page");
    });
    ASSERT_EQ(drawing.texts.size(), 3U);
    EXPECT_EQ(drawing.texts[0].text, L"corner");
    EXPECT_EQ(drawing.texts[0].at.x, 0);
    EXPECT_EQ(drawing.texts[0].at.y, 0);
    EXPECT_EQ(drawing.texts[1].at.x, 20);
    EXPECT_EQ(drawing.texts[1].at.y, 31);
    EXPECT_EQ(drawing.texts[2].at.x, -3);
    EXPECT_EQ(drawing.texts[2].at.y, 1);
}

TEST(PrintCanvas, WritesTheProcessesOwnLetters) {
    const Drawing drawing =
        drawn([](PrintCanvas& canvas) { canvas.drawText(0, 0, "M\xFCller \x80"); });
    ASSERT_EQ(drawing.texts.size(), 1U);
    EXPECT_EQ(drawing.texts[0].text, L"M\u00FCller \u20AC");
}

TEST(PrintCanvas, DrawsALineBetweenTheNearestPixels) {
    const double pixel = twipsPerPixel();
    const Drawing drawing = drawn([&](PrintCanvas& canvas) {
        canvas.drawLine(2.4 * pixel, 50.3 * pixel, 99.8 * pixel, 50.3 * pixel);
    });
    ASSERT_EQ(drawing.lineStarts.size(), 1U);
    ASSERT_EQ(drawing.lineEnds.size(), 1U);
    EXPECT_EQ(drawing.lineStarts[0].x, 2);
    EXPECT_EQ(drawing.lineStarts[0].y, 50);
    EXPECT_EQ(drawing.lineEnds[0].x, 100);
    EXPECT_EQ(drawing.lineEnds[0].y, 50);
}

TEST(PrintCanvas, AsksForTheFontWithItsSizeInPointsAndItsStyle) {
    const Drawing drawing = drawn([](PrintCanvas& canvas) {
        canvas.setFont({.name = "Times New Roman", .points = 13, .bold = true});
        canvas.drawText(0, 0, "bold");
        canvas.setFont({.name = "Arial", .points = 8, .italic = true});
        canvas.drawText(0, 0, "italic");
    });
    const auto dpi = static_cast<int>(std::lround(kTwipsPerInch / twipsPerPixel()));
    ASSERT_GE(drawing.fonts.size(), 2U);
    const LOGFONTW& bold = drawing.fonts[drawing.fonts.size() - 2];
    EXPECT_STREQ(bold.lfFaceName, L"Times New Roman");
    EXPECT_EQ(bold.lfHeight, -MulDiv(13, dpi, 72));
    EXPECT_EQ(bold.lfWeight, FW_BOLD);
    EXPECT_EQ(bold.lfItalic, 0);
    const LOGFONTW& italic = drawing.fonts.back();
    EXPECT_STREQ(italic.lfFaceName, L"Arial");
    EXPECT_EQ(italic.lfHeight, -MulDiv(8, dpi, 72));
    EXPECT_EQ(italic.lfWeight, FW_NORMAL);
    EXPECT_NE(italic.lfItalic, 0);
}

TEST(PrintCanvas, MeasuresTextAndLinesInTwips) {
    PrintCanvas canvas(memoryContext());
    canvas.setFont({.name = "Arial", .points = 72});
    const double inch = canvas.lineHeight();
    EXPECT_GT(inch, kTwipsPerInch) << "a line is a little higher than its font";
    EXPECT_LT(inch, 1.3 * kTwipsPerInch);
    EXPECT_EQ(canvas.textWidth(""), 0);
    EXPECT_GT(canvas.textWidth("WW"), canvas.textWidth("W"));
    EXPECT_GT(canvas.textWidth("W"), canvas.textWidth("i"));
    const double large = canvas.textWidth("Transaction ID");
    canvas.setFont({.name = "Arial", .points = 36});
    EXPECT_NEAR(canvas.textWidth("Transaction ID"), large / 2, large / 50);
}

TEST(PrintCanvas, AllowsAFontNameThatIsTooLong) {
    PrintCanvas canvas(memoryContext());
    EXPECT_NO_THROW(canvas.setFont({.name = std::string(200, 'x')}));
}

TEST(PrintCanvas, GivesItsContextAndFontsBack) {
    DeviceContextHandle context = memoryContext();
    const HDC raw = context.get();
    HGDIOBJ first = nullptr;
    HGDIOBJ second = nullptr;
    {
        PrintCanvas canvas(std::move(context));
        first = GetCurrentObject(raw, OBJ_FONT);
        canvas.setFont({.name = "Arial", .points = 30});
        second = GetCurrentObject(raw, OBJ_FONT);
        EXPECT_EQ(GetObjectType(first), 0U) << "the font before is not needed any more";
        EXPECT_EQ(GetObjectType(second), static_cast<DWORD>(OBJ_FONT));
    }
    EXPECT_EQ(GetObjectType(second), 0U);
    EXPECT_EQ(GetObjectType(raw), 0U);
}

TEST(PrintJob, MeasuresWithoutOpeningADocument) {
    Win32PrintJob job(memoryContext(), "Test");
    EXPECT_EQ(job.left(), 0);
    EXPECT_GT(job.width(), 0);
    EXPECT_GT(job.height(), 0);
    EXPECT_NO_THROW(job.setFont({.name = "Arial", .points = 11}));
    EXPECT_GT(job.textHeight(""), 0);
    EXPECT_EQ(job.textHeight(""), job.textHeight("Ag"));
    job.setCurrentX(300);
    job.setCurrentY(7.5);
    EXPECT_EQ(job.currentX(), 300);
    EXPECT_EQ(job.currentY(), 7.5);
}

TEST(PrintJob, ADocumentThatCannotBeOpenedRaisesAndGivesEverythingBack) {
    DeviceContextHandle context = memoryContext(); // no printer's
    const HDC raw = context.get();
    {
        Win32PrintJob job(std::move(context), "Test");
        const Error error = raised([&] { job.printEmptyLine(); });
        EXPECT_NE(error.number(), 0);
        EXPECT_NE(error.number(), errornumber::printerError) << "the operator is to hear of it";
        EXPECT_NE(error.number(), errornumber::cancelled);
        EXPECT_FALSE(error.description().empty());
        EXPECT_EQ(job.currentY(), 0) << "nothing was printed";
    }
    EXPECT_EQ(GetObjectType(raw), 0U);
}

TEST(PrintingError, NamesEveryWayOfCancelling) {
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(win32::printingError(SP_USERABORT).number(), errornumber::cancelled);
    EXPECT_EQ(win32::printingError(SP_APPABORT).number(), errornumber::cancelled);
    SetLastError(ERROR_CANCELLED);
    EXPECT_EQ(win32::printingError(SP_ERROR).number(), errornumber::cancelled);
    SetLastError(ERROR_PRINT_CANCELLED);
    EXPECT_EQ(win32::printingError(0).number(), errornumber::cancelled);
}

TEST(PrintingError, IsTheSystemsNumberAndTextWithoutAClosingPeriod) {
    SetLastError(ERROR_ACCESS_DENIED);
    const Error denied = win32::printingError(SP_ERROR);
    EXPECT_EQ(denied.number(), ERROR_ACCESS_DENIED);
    EXPECT_FALSE(denied.description().empty());
    EXPECT_FALSE(denied.description().ends_with('.'));
    EXPECT_EQ(win32::printingError(SP_OUTOFDISK).number(), ERROR_DISK_FULL);
    EXPECT_EQ(win32::printingError(SP_OUTOFMEMORY).number(), ERROR_OUTOFMEMORY);
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(win32::printingError(0).number(), ERROR_GEN_FAILURE) << "never a silent number";
    SetLastError(0x2FFFFFFF); // nobody's code
    EXPECT_FALSE(win32::printingError(0).description().empty());
}

TEST(Printers, APausedPrinterIsRefusedByName) {
    EXPECT_NO_THROW(win32::requireRunning("Till", 0));
    EXPECT_NO_THROW(win32::requireRunning("Till", PRINTER_STATUS_BUSY | PRINTER_STATUS_PRINTING));
    const Error error =
        raised([] { win32::requireRunning("Till", PRINTER_STATUS_PAUSED | PRINTER_STATUS_BUSY); });
    EXPECT_EQ(error.number(), ERROR_NOT_READY);
    EXPECT_EQ(error.description(), "The printer \"Till\" is paused");
}

TEST(Printers, TheDefaultPrinterIsGivenOrItsAbsenceIsRaised) {
    char name[MAX_PATH];
    DWORD size = sizeof name;
    const bool there = GetDefaultPrinterA(name, &size) != FALSE;
    win32::Win32Printers printers;
    const Error error = raised([&] {
        const auto job = printers.defaultPrinter("Test");
        EXPECT_GT(job->height(), job->width()) << "upright";
    });
    EXPECT_EQ(error.number(), there ? 0 : errornumber::noPrinter) << error.description();
    if (!there) {
        EXPECT_EQ(error.description(), "There is no default printer");
    }
}

} // namespace
} // namespace tollvane::test
