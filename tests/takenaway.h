#ifndef TESTS_TAKENAWAY_H
#define TESTS_TAKENAWAY_H

#include "tests/fakehost.h"

#include <functional>

/// Does something with a fresh owner as often as it calls the host, and destroys the owner inside the first, the
/// second, ... of these calls. What is left may not call the host any more (the address sanitizer sees what else it
/// touches). Returns how many calls there are, or minus the place of the one that was followed by another.
template <typename Owner>
int takeAwayInEveryCall(FakeHost& host, const std::function<Owner*()>& make, const std::function<void(Owner*)>& act)
{
    for (int place = 1;; ++place) {
        Owner* owner = make();
        int calls = 0;
        host.onCall = [&](const QString&) {
            if (++calls == place) {
                delete owner;
            }
        };
        act(owner);
        host.onCall = nullptr;
        if (calls < place) {
            delete owner;
            return calls;
        }
        if (calls > place) {
            return -place;
        }
    }
}

#endif
