#pragma once

#include <string>
#include <vector>

namespace ostrel::report {

/// What an argument of the command line stands for.
struct SourceFile {
    enum class Kind { File, UnreadableFolder, EmptyFolder };

    std::string path;
    Kind kind = Kind::File;
    std::string reason; ///< Why a folder can't be read.
};

/// The files that the arguments name, in their order. A folder stands for the files in it, at any
/// depth, whose names end in `.ost`, sorted by the bytes of their paths. Symbolic links to files
/// count, those to folders don't, so there are no loops. A folder within that can't be read has an
/// entry at its place among them, and the rest is searched; a folder without files has one, too.
///
/// Any other argument stands for itself, whether or not there is such a file.
std::vector<SourceFile> findSourceFiles(const std::vector<std::string>& arguments);

} // namespace ostrel::report
