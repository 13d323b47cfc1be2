#ifndef PAGE_BLOCKINGPAUSE_H
#define PAGE_BLOCKINGPAUSE_H

/// Blocks the calling thread for the given time without running the event loop. A sleep that a signal
/// interrupts is resumed for the remainder.
void blockingPause(int milliseconds);

#endif
