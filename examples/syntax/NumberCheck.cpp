#include "syntax/NumberCheck.h"

namespace ostrel {

const char* checkNumber(std::u16string_view text) {
    return text.empty() ? "malformed number" : nullptr;
}

} // namespace ostrel
