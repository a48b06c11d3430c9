// The page that a failed transaction's help button opens.
#include "components/charge/core/Reasons.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <string>

namespace tollvane::charge {
namespace {

std::string page() {
    std::ifstream file(TOLLVANE_HELP_PAGE, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The topic of an answer: its two codes, written one after the other.
std::string topicOf(const ProcessorAnswer& answer) {
    return std::to_string(answer.responseCode) + std::to_string(answer.reasonCode);
}

std::set<std::string> everyTopic() {
    std::set<std::string> topics;
    for (int code = 0; code < 1000; ++code)
        if (const ProcessorAnswer answer = answerFor(static_cast<Reason>(code));
            answer.responseCode != 0)
            topics.insert(topicOf(answer));
    return topics;
}

std::set<std::string> explainedTopics() {
    const std::string text = page();
    const std::string mark = "<section class=\"answer\" id=\"";
    std::set<std::string> topics;
    for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at + 1)) {
        const std::size_t start = at + mark.size();
        topics.insert(text.substr(start, text.find('"', start) - start));
    }
    return topics;
}

TEST(HelpPage, EveryAnswerHasItsAnchorAndNoAnchorIsOfAnother) {
    ASSERT_GT(everyTopic().size(), 20U);
    EXPECT_EQ(explainedTopics(), everyTopic());
}

TEST(HelpPage, EveryAnchorNamesTheCodesThatTheMessageShows) {
    const std::string text = page();
    for (int code = 0; code < 1000; ++code) {
        const ProcessorAnswer answer = answerFor(static_cast<Reason>(code));
        if (answer.responseCode == 0)
            continue;
        const std::size_t at = text.find("id=\"" + topicOf(answer) + "\"");
        ASSERT_NE(at, std::string::npos) << topicOf(answer);
        std::string codes = "response " + std::to_string(answer.responseCode) + ", reason " +
                            std::to_string(answer.reasonCode);
        if (answer.subCode != 0)
            codes += ", sub-code " + std::to_string(answer.subCode);
        const std::string section = text.substr(at, text.find("</section>", at) - at);
        EXPECT_NE(section.find(codes + "<"), std::string::npos) << codes;
    }
}

} // namespace
} // namespace tollvane::charge
