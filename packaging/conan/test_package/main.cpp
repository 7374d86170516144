// Calls into the library, which must be found when the program is linked and when it starts.
#include <zt_orvex/zt_orvex.h>

int main() {
    const bool isFound = zt::orvex::getRestrictedExternals().count(u"eval") == 1;
    const bool isValue = zt::orvex::internal::parseDoubleLiteral(u"1.5") == 1.5;
    return isFound && isValue ? 0 : 1;
}
