#include "report/model/ReportWriter.h"

namespace ostrel::report {

void writeAll(ReportWriter& writer, const Report& report) {
    writer.begin();
    for (const File& file : report.files)
        writer.write(file);
    writer.end();
}

} // namespace ostrel::report
