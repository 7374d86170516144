#include "report/model/Report.h"

namespace ostrel::report {

const char* keywordOf(ConstructKind kind) {
    return kind == ConstructKind::Parfor ? "parfor" : "spmd";
}

} // namespace ostrel::report
