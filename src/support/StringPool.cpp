#include <zt_orvex/support/StringPool.h>

#include "support/SmallStringWords.h"

namespace zt::orvex::internal {

StringPool::StringPool() = default;
StringPool::~StringPool() = default;

void StringPool::poolIfShort(ConvertibleBasicStringView<char> key,
                             ConvertibleBasicStringView<char16_t> value) {
    if (key.size() > SmallString::MAX_LENGTH) return;
    table.insert_or_assign(SmallString(packShortText(key)), value);
    bytesPooled += SmallString::MAX_LENGTH;
}

boost::optional<ConvertibleBasicStringView<char16_t>>
StringPool::lookup(ConvertibleBasicStringView<char> key) const {
    if (key.size() > SmallString::MAX_LENGTH) return boost::none;
    ++numberOfLookups;
    const auto entry = table.find(SmallString(packShortText(key)));
    if (entry == table.end()) return boost::none;
    ++numberOfHits;
    bytesSaved += (key.size() + 1) * sizeof(char16_t);
    return entry->second;
}

} // namespace zt::orvex::internal
