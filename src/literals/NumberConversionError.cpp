#include <zt_orvex/literals/NumberConversionError.h>

#include <utility>

namespace zt::orvex::internal {

namespace {

const std::string& getMessageStart() {
    // Never destroyed, so that destructors of static objects may parse literals.
    static const auto& start = *new std::string("Conversion failed converting '");
    return start;
}

} // namespace

NumberConversionError::NumberConversionError(std::string textToConvert, std::string reasonOfFailure)
    : text(std::move(textToConvert)), reason(std::move(reasonOfFailure)),
      message(getMessageStart() + text + "' Reason: " + reason) {}

NumberConversionError::NumberConversionError(const NumberConversionError&) = default;
NumberConversionError& NumberConversionError::operator=(const NumberConversionError&) = default;
NumberConversionError::~NumberConversionError() = default;

const char* NumberConversionError::what() const noexcept { return message.c_str(); }
const std::string& NumberConversionError::getText() const noexcept { return text; }
const std::string& NumberConversionError::getReason() const noexcept { return reason; }
const std::string& NumberConversionError::getMessage() const noexcept { return message; }

} // namespace zt::orvex::internal
