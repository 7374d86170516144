#pragma once

#include "report/model/Report.h"

namespace ostrel::report {

/// Writes a report in one format, a file at a time, so that no more than one file of a long report
/// has to be in memory. Not synchronised.
///
///     writer->begin();
///     writer->write(first);
///     writer->write(second);
///     writer->end();
///
/// What a writer needs to know at the end, such as totals, it counts on the way. A failure to write
/// shows in the state of the stream.
class ReportWriter {
public:
    ReportWriter() = default;
    ReportWriter(const ReportWriter&) = delete;
    ReportWriter& operator=(const ReportWriter&) = delete;
    virtual ~ReportWriter() = default;

    virtual void begin() = 0;
    virtual void write(const File& file) = 0; ///< Keeps no reference to the file.
    virtual void end() = 0;
};

/// Writes a report that is at hand as a whole.
void writeAll(ReportWriter& writer, const Report& report);

} // namespace ostrel::report
