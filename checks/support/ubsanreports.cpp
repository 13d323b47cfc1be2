#include <cstdlib>
#include <string>

#include <dlfcn.h>

// Part of every program that is built with sanitizers.
//
// gcc's runtimes for addresses and for undefined behaviour are two libraries with a report file each, and both export
// __sanitizer_set_report_path. The second one calls it to set its "log_path" and reaches that of the first: its own
// reports stay on stderr, which nobody reads of a child process. So its function is called here, by its address.

namespace
{

[[gnu::constructor]] void writeReportsToTheirFolder()
{
    const char* options = std::getenv("UBSAN_OPTIONS");
    void* runtime = dlopen("libubsan.so.1", RTLD_LAZY | RTLD_NOLOAD);
    if (options == nullptr || runtime == nullptr) {
        return; // nobody asks, or a runtime that is one with the others
    }
    const std::string key = "log_path=";
    const std::string text = options;
    const std::size_t begin = text.find(key);
    const auto setPath = reinterpret_cast<void (*)(const char*)>(dlsym(runtime, "__sanitizer_set_report_path"));
    if (begin != std::string::npos && setPath != nullptr) {
        const std::size_t path = begin + key.size();
        setPath(text.substr(path, text.find(':', path) - path).c_str());
    }
}

} // namespace
