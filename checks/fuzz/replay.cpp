// Runs one fuzzer's function over kept inputs, in builds without a fuzzing engine: replay_x FOLDER...
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <unistd.h>

extern "C" {
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
__attribute__((weak)) int LLVMFuzzerInitialize(int* argc, char*** argv);
__attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());

/// Asked by the checker of undefined behaviour, which otherwise ends a process where nothing here would notice.
const char* __ubsan_default_options()
{
    return "abort_on_error=1";
}
}

namespace
{

/// Where the input under way comes from, for the handlers of a process that is about to end.
QByteArray currentFile;

void tellFile()
{
    dprintf(STDERR_FILENO, "while replaying %s\n", currentFile.constData());
}

void onAbort(int number)
{
    tellFile();
    std::signal(number, SIG_DFL);
    std::raise(number);
}

bool replayFile(const QString& path)
{
    QFile file(path);
    currentFile = path.toLocal8Bit();
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "%s can't be read\n", currentFile.constData());
        return false;
    }
    const QByteArray bytes = file.readAll();
    // A copy without the terminator that a QByteArray has: reading one byte too many is to be noticed.
    const std::unique_ptr<std::uint8_t[]> input(new std::uint8_t[static_cast<std::size_t>(bytes.size())]);
    std::copy(bytes.cbegin(), bytes.cend(), input.get());
    LLVMFuzzerTestOneInput(input.get(), static_cast<std::size_t>(bytes.size()));
    return true;
}

/// Number of inputs replayed; -1 when one can't be read.
int replayFolder(const QString& path)
{
    const QFileInfoList files = QDir(path).entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo& file : files) {
        if (!replayFile(file.filePath())) {
            return -1;
        }
    }
    return files.size();
}

} // namespace

int main(int argc, char** argv)
{
    std::signal(SIGABRT, onAbort);
    if (__sanitizer_set_death_callback != nullptr) {
        __sanitizer_set_death_callback(tellFile);
    } else {
        std::signal(SIGSEGV, onAbort);
    }
    if (LLVMFuzzerInitialize != nullptr) {
        LLVMFuzzerInitialize(&argc, &argv);
    }
    int inputs = 0;
    for (int i = 1; i < argc; ++i) {
        const int replayed = replayFolder(QFile::decodeName(argv[i]));
        if (replayed <= 0) {
            dprintf(STDERR_FILENO, "nothing to replay in %s\n", argv[i]);
            return 1;
        }
        inputs += replayed;
    }
    std::printf("%d inputs replayed\n", inputs);
    return inputs > 0 ? 0 : 1;
}
