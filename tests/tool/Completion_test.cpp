// SPDX-License-Identifier: MIT
#include "tests/tool/ToolRunner.h"

#include <QStandardPaths>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace completion_test {

namespace {

const QString kScripts = TARVOMIME_SOURCE_DIR "/tools/tarvomime/completion/";

// How a shell is asked: it reads the script, takes the words typed from its arguments (for fish,
// as one line), and prints a candidate a line, with what it means behind a tab or a colon. Where
// files are wanted, it prints that or their names.
struct Shell
{
    const char* name;
    const char* script;
    const char* program;
};

constexpr Shell kShells[] = {{"bash", "tarvomime.bash",
                              R"(source "$1"; shift; compopt() { echo "files: $*"; }
        COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _tarvomime "$1"
        printf '%s\n' "${COMPREPLY[@]}")"},
                             {"zsh", "_tarvomime",
                              R"(script=$1; shift; words=("$@"); CURRENT=$#; compset() { true }
        _describe() { print -rl -- "${(@P)4}" }; _files() { print -r -- "files: $*" }
        complete_it() { source $script }; complete_it)"},
                             {"fish", "tarvomime.fish",
                              R"(source $argv[2]; set -l escaped (string escape -- $argv[3..-2])
        complete -C "$escaped $argv[-1]")"}};

QStringList argumentsOf(const Shell& shell)
{
    const QString name = shell.name;
    if (name == "bash")
        return {"--norc", "--noprofile", "-c", shell.program, name};
    if (name == "zsh")
        return {"-f", "-c", shell.program, name};
    return {"--no-config", "-c", shell.program, name};
}

struct TypedRow
{
    const char* name;
    // What was typed behind "tarvomime", word for word.
    QStringList words;
    // Some of what is offered.
    QStringList offered;
    // Something that is not.
    QString missing;
};

void PrintTo(const Shell& shell, std::ostream* out)
{
    *out << shell.name;
}

void PrintTo(const TypedRow& row, std::ostream* out)
{
    *out << row.name;
}

const TypedRow kRows[] = {
    {"Commands", {""}, {"show", "compose", "reply", "words"}, "--version"},
    {"BeginningOfACommand", {"re"}, {"reassemble", "reply"}, "show"},
    {"SecondCommand", {"words", ""}, {"decode", "encode"}, "show"},
    {"Options", {"compose", "--"}, {"--subject", "--inline", "--message-id"}, "--part"},
    {"OptionBehindFiles", {"compose", "--attach", "a", "--su"}, {"--subject"}, "--html"},
    {"Charsets", {"text", "--charset", "iso-8859-1"}, {"iso-8859-1", "iso-8859-15"}, "utf-8"},
    {"Choices", {"list", "--color", ""}, {"auto", "always", "never"}, "a.eml"},
    {"BehindHelp", {"help", "re"}, {"reply"}, "show"},
    {"Encodings", {"encode", ""}, {"base64", "quoted-printable"}, "a.eml"},
    {"Parts", {"extract", "a.eml", "--part", ""}, {"1", "1.1", "1.2"}, "1.3"},
    {"PartsOfASpacedName", {"extract", "two words.eml", "--part", "1."}, {"1.1"}, "1"},
    {"PartsOfNoFile", {"extract", "missing", "--part", ""}, {}, "1"},
};

class Completion : public testing::TestWithParam<std::tuple<Shell, TypedRow>>
{
protected:
    const Shell& shell() const { return std::get<0>(GetParam()); }

    // Null where the shell is not installed.
    QStringList offeredFor(QStringList words) const
    {
        QProcess process;
        process.setWorkingDirectory(tool.path(""));
        if (QString("bash") == shell().name)
            words.replaceInStrings(" ", "\\ ");
        process.start(QStandardPaths::findExecutable(shell().name),
                      argumentsOf(shell())
                          << kScripts + shell().script << tool.path("tarvomime") << words);
        const ToolResult result = ToolRunner::finish(process);
        EXPECT_EQ(result.err, "");
        QStringList offered = QString::fromUtf8(result.out).split('\n');
        for (QString& line : offered)
            line = line.section(QString("zsh") == shell().name ? ':' : '\t', 0, 0);
        return offered;
    }

    void SetUp() override
    {
        if (QStandardPaths::findExecutable(shell().name).isEmpty())
            GTEST_SKIP() << shell().name << " is not installed";
        // Completions are for the plain name, which not every build gives the tool.
        ASSERT_TRUE(QFile::link(TARVOMIME_TOOL, tool.path("tarvomime")));
        tool.write("a.eml",
                   "Content-Type: multipart/mixed; boundary=b\n\n--b\n\none\n--b\n\ntwo\n--b--\n");
        tool.write("two words.eml", tool.read("a.eml"));
    }

    ToolRunner tool;
};

} // namespace

TEST_P(Completion, OffersWhatFits)
{
    const TypedRow& row = std::get<1>(GetParam());
    const QStringList offered = offeredFor(row.words);
    for (const QString& word : row.offered)
        EXPECT_TRUE(offered.contains(word)) << offered.join('\n').toStdString();
    EXPECT_FALSE(offered.contains(row.missing)) << offered.join('\n').toStdString();
}

INSTANTIATE_TEST_SUITE_P(Tool, Completion,
                         testing::Combine(testing::ValuesIn(kShells), testing::ValuesIn(kRows)),
                         [](const auto& row) {
                             return std::string(std::get<0>(row.param).name) + "_" +
                                    std::get<1>(row.param).name;
                         });

class CompletionOfFiles : public Completion
{
};

TEST_P(CompletionOfFiles, LeavesThemToTheShell)
{
    const QStringList offered = offeredFor(std::get<1>(GetParam()).words);
    const bool named = offered.contains("a.eml");
    const bool wished = offered.join(' ').contains("files");
    EXPECT_TRUE(named || wished) << offered.join('\n').toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Tool, CompletionOfFiles,
    testing::Combine(testing::ValuesIn(kShells),
                     testing::Values(TypedRow{"FileToShow", {"show", "a"}, {}, {}},
                                     TypedRow{
                                         "FileToAttach", {"compose", "--attach", "a"}, {}, {}})),
    [](const auto& row) {
        return std::string(std::get<0>(row.param).name) + "_" + std::get<1>(row.param).name;
    });

// bash takes "=" for the end of a word.
TEST(Completion, OffersPartsBehindEquals)
{
    const ToolRunner tool;
    tool.write("a.eml", "Content-Type: multipart/mixed; boundary=b\n\n--b\n\none\n--b--\n");
    EXPECT_EQ(tool.run({"__complete", "extract", "a.eml", "--part=1"}).out,
              ":\n--part=1\tmultipart/mixed \n--part=1.1\ttext/plain \n");
    QProcess bash;
    bash.setWorkingDirectory(tool.path(""));
    bash.start("bash", argumentsOf(kShells[0])
                           << kScripts + kShells[0].script << TARVOMIME_TOOL
                           << QStringList{"extract", "a.eml", "--part", "=", "1."});
    EXPECT_EQ(ToolRunner::finish(bash).out, "1.1\n");
}

} // namespace completion_test
