// SPDX-License-Identifier: MIT
// What users do all day, with one library: subjects, parsing, files, building. Each result is
// checked, and its memory measured, before its time is taken.
//
// Takes the options of the benchmark library, "--full" for the sizes that comparisons are told in,
// and "--once" to run everything small and short.
#include "bench/codecs/Inputs.h"
#include "bench/messages/Library.h"
#include "bench/messages/Messages.h"
#include "bench/messages/PeakMemory.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string_view>

#include <unistd.h>

namespace bench {

namespace {

constexpr long long kDate = 1731402000;
constexpr std::size_t kSubjectLength = 22;
constexpr std::size_t kMegabyte = std::size_t(1) << 20;

enum Scale { Once, Usual, Full };
Scale scale = Usual;

// One size for each scale.
struct Sizes
{
    int sizes[3];
    int now() const { return sizes[scale]; }
};

// A folder of its own, gone with the program.
class Folder
{
public:
    Folder()
        : mPath(std::filesystem::temp_directory_path() /
                ("messages_bench." + std::to_string(getpid())))
    {
        std::filesystem::create_directory(mPath);
    }
    ~Folder() { std::filesystem::remove_all(mPath); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string file(const std::string& name) const { return (mPath / name).string(); }

private:
    std::filesystem::path mPath;
};

const Folder& folder()
{
    static const Folder folder;
    return folder;
}

// Checks the job and its memory by a first round, then times it.
void measure(benchmark::State& state, const std::function<bool()>& isRight,
             const std::function<void()>& job)
{
    const PeakMemory memory;
    if (!isRight())
        return state.SkipWithError("wrong result");
    state.counters["peak_MiB"] = memory.megabytes();
    for (auto _ : state)
        job();
}

// What `parseAndRead` is to find.
struct Content
{
    int parts;
    int names;
};

using Parse = Findings (*)(const std::string& text);

void parse(benchmark::State& state, const std::string& text, Content content, Parse read)
{
    const Findings expected{content.parts, kDate, kSubjectLength, content.names};
    measure(
        state, [&] { return read(text) == expected; },
        [&] { benchmark::DoNotOptimize(read(text)); });
}

void addParsing(const char* name, Sizes size, const std::function<std::string(int)>& make,
                const std::function<Content(int)>& contentOf)
{
    if (!canDo(Job::Parse))
        return;
    benchmark::RegisterBenchmark(name, [=](benchmark::State& state) {
        parse(state, make(size.now()), contentOf(size.now()), parseAndRead);
    });
}

std::function<Content(int)> always(int parts, int names = 0)
{
    return [=](int) { return Content{parts, names}; };
}

constexpr Sizes kAttachment{{100000, 10000000, 10000000}};

void parseAttachmentInPlace(benchmark::State& state)
{
    const std::string text = attachmentMail(1, static_cast<std::size_t>(kAttachment.now()));
    parse(state, text, {2, 1}, parseInPlace);
}

void addParsingJobs()
{
    addParsing(
        "d.1 text mail", {{1, 1, 1}}, [](int) { return textMail(); }, always(1));
    addParsing(
        "d.2 alternative", {{30000, 30000, 30000}},
        [](int size) { return alternativeMail(static_cast<std::size_t>(size)); }, always(2));
    addParsing(
        "d.3 attachment", kAttachment,
        [](int size) { return attachmentMail(1, static_cast<std::size_t>(size)); }, always(2, 1));
    addParsing("d.4 digest", {{10, 1000, 1000}}, digest, [](int count) {
        return Content{count, 0};
    });
    addParsing("d.5 levels", {{5, 50, 50}}, levels, [](int count) {
        return Content{count + 1, 0};
    });
    addParsing("d.6 header lines", {{20, 2000, 2000}}, headerLines, always(1));
    addParsing("h nest", {{100, 10000, 10000}}, nest, always(1));
    addParsing("h deep nest", {{100, 20000, 100000}}, nest, always(1));
    addParsing("h parts", {{100, 100000, 1000000}}, partFlood, [](int count) {
        return Content{count, 0};
    });
    addParsing(
        "h almost match", {{10000, 16000000, 16000000}},
        [](int size) { return almostMatches(static_cast<std::size_t>(size)); }, always(1));
    addParsing(
        "h long line", {{10000, 16 << 20, 64 << 20}},
        [](int size) { return longLine(static_cast<std::size_t>(size)); }, always(1));
    addParsing("h many lines", {{100, 100000, 1000000}}, headerLines, always(1));
}

void writeFile(const std::string& path, const std::string& text)
{
    std::ofstream(path, std::ios::binary) << text;
}

constexpr Sizes kFileMegabytes{{1, 64, 1024}};

std::string largeFile()
{
    const std::string path = folder().file("large.eml");
    if (std::filesystem::exists(path))
        return path;
    std::ofstream file(path, std::ios::binary);
    file << attachmentHead();
    const std::string line = attachmentLine();
    const std::size_t lines = static_cast<std::size_t>(kFileMegabytes.now()) * kMegabyte / 78;
    for (std::size_t i = 0; i < lines; ++i)
        file << line;
    file << attachmentTail();
    return path;
}

bool isSaved(const std::string& path)
{
    const std::size_t lines = static_cast<std::size_t>(kFileMegabytes.now()) * kMegabyte / 78;
    const std::string line = makeInput(Kind::Binary, 57);
    std::ifstream file(path, std::ios::binary);
    std::string bytes(57, '\0');
    for (std::size_t i = 0; i < lines; ++i) {
        if (!file.read(bytes.data(), 57) || bytes != line)
            return false;
    }
    return file.get() == std::ifstream::traits_type::eof();
}

void parseLargeFile(benchmark::State& state)
{
    const std::string path = largeFile();
    const Findings expected{2, kDate, kSubjectLength, 1};
    measure(
        state, [&] { return parseFile(path) == expected; },
        [&] { benchmark::DoNotOptimize(parseFile(path)); });
}

void save(benchmark::State& state)
{
    const std::string path = largeFile();
    const std::string to = folder().file("saved.bin");
    measure(
        state, [&] { return saveAttachment(path, to) && isSaved(to); },
        [&] { benchmark::DoNotOptimize(saveAttachment(path, to)); });
}

std::vector<std::string> mailboxFiles(int count)
{
    std::vector<std::string> paths;
    for (const std::string& mail : mailbox(count)) {
        paths.push_back(folder().file("mail" + std::to_string(paths.size())));
        writeFile(paths.back(), mail);
    }
    return paths;
}

void listMailbox(benchmark::State& state)
{
    const std::vector<std::string> paths = mailboxFiles(Sizes{{10, 500, 5000}}.now());
    const auto isListed = [](const std::string& path) {
        const Findings found = parseFile(path);
        return found.parts > 0 && found.date == kDate && found.subjectLength == kSubjectLength;
    };
    const auto list = [&] { return std::all_of(paths.begin(), paths.end(), isListed); };
    measure(state, list, [&] { benchmark::DoNotOptimize(list()); });
}

void build(benchmark::State& state)
{
    const auto size = static_cast<std::size_t>(Sizes{{1000, 1 << 20, 1 << 20}}.now());
    const std::vector<std::string> attachments(10, makeInput(Kind::Binary, size));
    const std::size_t encoded = 10 * asBase64(attachments.front(), true).size();
    // Headers and delimiters differ from library to library; line ends may.
    const auto isBuilt = [&] {
        const std::size_t length = buildMessage(attachments);
        return length > encoded - 10 * size / 57 && length < encoded + 10000;
    };
    measure(state, isBuilt, [&] { benchmark::DoNotOptimize(buildMessage(attachments)); });
}

std::vector<Subject> subjects(Language language)
{
    return subjectsIn(language, Sizes{{10, 1000, 1000}}.now());
}

void decode(benchmark::State& state, Language language)
{
    const std::vector<Subject> all = subjects(language);
    const auto isRight = [](const Subject& subject) {
        return decodeSubject(subject.wire, true) == subject.utf8;
    };
    measure(
        state, [&] { return std::all_of(all.begin(), all.end(), isRight); },
        [&] {
            for (const Subject& subject : all)
                decodeSubject(subject.wire, false);
        });
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(all.size()));
}

void encode(benchmark::State& state, Language language)
{
    using TextPointer = std::unique_ptr<LibraryText, decltype(&deleteLibraryText)>;
    const std::vector<Subject> all = subjects(language);
    std::vector<TextPointer> texts;
    for (const Subject& subject : all)
        texts.emplace_back(newLibraryText(subject.utf8), deleteLibraryText);
    const auto isRight = [language](const Subject& subject) {
        const TextPointer text(newLibraryText(subject.utf8), deleteLibraryText);
        return decodeSubject(encodeSubject(*text, language, true), true) == subject.utf8;
    };
    measure(
        state, [&] { return std::all_of(all.begin(), all.end(), isRight); },
        [&] {
            for (const TextPointer& text : texts)
                encodeSubject(*text, language, false);
        });
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(all.size()));
}

void add(Job job, const std::string& name, void (*run)(benchmark::State&))
{
    if (canDo(job))
        benchmark::RegisterBenchmark(name.c_str(), run);
}

void addSubjectJobs()
{
    for (const Language language : {Language::Russian, Language::German, Language::Chinese}) {
        const std::string name = charsetName(language);
        if (canDo(Job::Decode))
            benchmark::RegisterBenchmark(("c decode " + name).c_str(), decode, language);
        if (canDo(Job::Encode))
            benchmark::RegisterBenchmark(("c encode " + name).c_str(), encode, language);
    }
}

void addJobs()
{
    addSubjectJobs();
    addParsingJobs();
    add(Job::ParseInPlace, "d.3 in place", parseAttachmentInPlace);
    add(Job::ParseFile, "e parse a file", parseLargeFile);
    add(Job::Save, "e save its attachment", save);
    add(Job::Build, "f build", build);
    add(Job::ParseFile, "g list a mailbox", listMailbox);
}

} // namespace

} // namespace bench

int main(int argc, char** argv)
{
    char shortest[] = "--benchmark_min_time=0";
    std::vector<char*> options;
    for (int i = 0; i < argc; ++i) {
        const std::string_view option(argv[i]);
        if (option == "--full")
            bench::scale = bench::Full;
        else if (option == "--once")
            bench::scale = bench::Once;
        if (option != "--full")
            options.push_back(option == "--once" ? shortest : argv[i]);
    }
    bench::addJobs();
    int count = static_cast<int>(options.size());
    benchmark::Initialize(&count, options.data());
    if (benchmark::ReportUnrecognizedArguments(count, options.data()))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
