#ifndef CHECKS_FUZZ_APPLICATION_H
#define CHECKS_FUZZ_APPLICATION_H

namespace fuzz
{

/// Starts Qt's widgets without a display, at 96 dpi, for the rest of the process. Call it once.
void startApplication();

} // namespace fuzz

#endif
