// Literals in the destructors of objects that outlive the library's thread-local patterns. An
// ordinary program: static objects of a test framework would live too long to ask.
//
//     literals_at_exit <what the main function has done before>

#include <zt_orvex/literals/LiteralParsing.h>
#include <zt_orvex/literals/LiteralValidation.h>
#include <zt_orvex/literals/NumberConversionError.h>
#include <zt_orvex/literals/ValueToStringVisitor.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <thread>

namespace {

using namespace zt::orvex::internal;

std::string outcomeOfWrongDigit() {
    try {
        parseBinaryLiteral("0b2");
        return "";
    } catch (const NumberConversionError& error) {
        return error.what();
    }
}

bool literalsWork() {
    constexpr auto VALID = LiteralValidationResult::Valid;
    constexpr auto MALFORMED = LiteralValidationResult::Malformed;
    return validateBinaryLiteral("0b1") == VALID && validateBinaryLiteral(u"0b1u8") == VALID &&
           validateBinaryLiteral("0b2") == MALFORMED &&
           validateBinaryLiteral(u"0b2") == MALFORMED &&
           validateBinaryLiteral("0b\xB1") == MALFORMED && validateHexLiteral("0xF") == VALID &&
           validateHexLiteral(u"0xFs8") == VALID && validateHexLiteral("0xG") == MALFORMED &&
           validateHexLiteral(u"0xG") == MALFORMED && validateDoubleLiteral("1.5d3") == VALID &&
           validateDoubleLiteral(u"1.5d3") == VALID && validateDoubleLiteral("d3") == MALFORMED &&
           validateDoubleLiteral(u"d3") == MALFORMED && parseBinaryLiteral("0b1").which() == 0 &&
           parseHexLiteral(u"0x1").which() == 0 && parseDoubleLiteral("1.5d3") == 1500 &&
           outcomeOfWrongDigit() == "Conversion failed converting '2' Reason: Not Specified" &&
           ValueToStringVisitor().visit(1.5) == "1.5";
}

void require(bool works, const char* where) {
    if (works) return;
    std::printf("literals don't work in a destructor of %s\n", where);
    std::fflush(stdout);
    std::_Exit(1);
}

struct StaticObject {
    ~StaticObject() { require(literalsWork(), "a static object"); }
} staticObject;

struct ThreadLocalObject {
    ~ThreadLocalObject() { require(literalsWork(), "a thread-local object"); }
    bool isUsed = false;
};
thread_local ThreadLocalObject threadLocalObject;

/// Makes a thread whose patterns are destroyed before its thread-local object.
void useOnAnotherThread() {
    std::thread([] {
        threadLocalObject.isUsed = true;
        require(literalsWork(), "nothing");
    }).join();
}

} // namespace

int main(int, char** arguments) {
    const std::string_view use = arguments[1];
    if (use == "main-thread") {
        threadLocalObject.isUsed = true;
        require(literalsWork(), "nothing");
    } else if (use == "another-thread") {
        useOnAnotherThread();
    }
    return EXIT_SUCCESS;
}
