#include <zt_orvex/support/SmallString.h>

#include "support/SmallStringWords.h"

#include <algorithm>

namespace zt::orvex::internal {

SmallString::SmallString(ConvertibleBasicStringView<char> text) : words(packShortText(text)) {}
SmallString::SmallString(const SmallString&) = default;
SmallString::SmallString(SmallString&&) noexcept = default;
SmallString& SmallString::operator=(const SmallString&) = default;
SmallString& SmallString::operator=(SmallString&&) noexcept = default;

bool SmallString::operator==(const SmallString& other) const { return hasWordsOf(other); }
bool SmallString::operator!=(const SmallString& other) const { return !hasWordsOf(other); }

std::size_t SmallString::hashCode() const { return hashWords(); }

std::string SmallString::str() const {
    unsigned char bytes[MAX_LENGTH];
    boost::endian::store_little_u64(bytes, words.low);
    boost::endian::store_little_u64(bytes + 8, words.high);
    return std::string(bytes, std::find(bytes, bytes + MAX_LENGTH, 0));
}

} // namespace zt::orvex::internal
