#ifndef SIMULATOR_FILEFAULT_H
#define SIMULATOR_FILEFAULT_H

#include <QString>

namespace sim
{

/// What is wrong in a file, and where.
struct FileFault {
    QString file;
    int line = 0;   ///< from 1, of what can't be read as a text; 0: the file as a whole, or a member of it
    QString member; ///< path of what was read and is wrong; empty: no particular member
    QString text;

    /// "cell.json: registers[3].len: expected a whole number from 1 to 1000", or "cell.json:42: not JSON: ...".
    /// Control characters, as a member's name may have them, are escaped.
    QString message() const;
};

} // namespace sim

#endif
