#include "checks/fuzz/leaks.h"

extern "C" {
__attribute__((weak)) void __lsan_disable();
__attribute__((weak)) void __lsan_enable();
}

namespace fuzz
{

LeaksIgnored::LeaksIgnored()
{
    if (__lsan_disable != nullptr) {
        __lsan_disable();
    }
}

LeaksIgnored::~LeaksIgnored()
{
    if (__lsan_enable != nullptr) {
        __lsan_enable();
    }
}

} // namespace fuzz
