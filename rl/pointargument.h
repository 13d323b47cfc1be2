#ifndef RL_POINTARGUMENT_H
#define RL_POINTARGUMENT_H

#include <QString>

/// Whether a line that holds the text as an argument is still the line that was meant: the reader of lines gives the
/// text back as that one argument, unchanged, and no controller finds in it the end of the call, a second
/// instruction, a comment or a quoted text. So it is not blank, has no blanks at its ends, a comma only inside
/// parentheses, a closing one for each opened before, and no double quote, semicolon, "//", line break or other
/// control character. A name is one, and so is `Offs(p1,0,0,5)`.
bool isPointArgument(const QString& text);

/// Whether a point may be stored under that name: a point argument without parentheses, so also without commas.
bool isPointName(const QString& text);

#endif
