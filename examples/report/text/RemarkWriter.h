#pragma once

#include "report/model/Report.h"
#include "terminal/MessageWriter.h"

#include <ostream>

namespace ostrel::report {

/// Writes a remark with its line, the paths that prove it, and its help:
///
///     sum.ost:3:9: remark: an iteration may read ... [carried]
///         3 |     t = s;
///           |         ^
///           how the value leaves its iteration:
///             1: 's' is written at 5:9
///             2: the iteration ends at 7:1
///           help: assign 's' before it is read
///
/// A path of one step is left out: its place is that of the remark.
class RemarkWriter {
public:
    /// The stream must outlive the writer.
    RemarkWriter(std::ostream& stream, const TextStyle& textStyle) : messages(stream, textStyle) {}

    void write(const File& file, const Remark& remark);

private:
    void writePath(const Remark& remark, std::size_t index);

    MessageWriter messages;
};

} // namespace ostrel::report
