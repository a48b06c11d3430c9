#pragma once

#include <string>
#include <string_view>

namespace tollvane {

/// Without leading and trailing blanks (the character 32 only).
std::string trimmed(std::string_view text);
/// Every "&" doubled, so that a caption shows the text as it is.
std::string withoutAccessKeys(std::string_view text);
/// `text` with every occurrence of `piece` removed; an empty piece removes nothing.
std::string withoutPiece(std::string_view text, std::string_view piece);
/// At least `digits` digits, padded with zeros; a minus sign stands in front.
std::string zeroPadded(long number, int digits);

} // namespace tollvane
