// SPDX-License-Identifier: MIT
#include "tools/tarvomime/Arguments.h"
#include "tools/tarvomime/Commands.h"
#include "tools/tarvomime/Interrupt.h"
#include "tools/tarvomime/ListRow.h"
#include "tools/tarvomime/Mail.h"
#include "tools/tarvomime/OrderedJobs.h"
#include "tools/tarvomime/ProgressBar.h"
#include "tools/tarvomime/Session.h"
#include "tools/tarvomime/Style.h"
#include "tools/tarvomime/Terminal.h"

#include <QThread>
#include <algorithm>
#include <memory>

namespace tarvomime::tool {

namespace {

constexpr std::size_t kMostMessagesOfAJob = 32;
constexpr qint64 kMostBytesOfAJob = 1 << 20;

struct ListOptions
{
    MailInputs inputs;
    ListFormat format;
    qint64 jobs = 0;
};

// The lines of a job's messages, and the bytes that they are about.
struct ListedMessages
{
    std::vector<ListRow> rows;
    qint64 bytes = 0;
};

ListedMessages listMessages(const std::vector<MailPlace>& places, const ListOptions& options)
{
    ListedMessages listed;
    for (const MailPlace& place : places) {
        if (wasInterrupted())
            break;
        Mail mail(place, options.inputs.charset);
        listed.rows.push_back(listRow(mail, options.format));
        listed.bytes += place.length;
    }
    return listed;
}

class Listing
{
public:
    Listing(const ListOptions& options, Session& session)
        : mOptions(options), mSession(session), mSource(options.inputs, session),
          mBar("Reading", mSource.totalSize()),
          mJobs(threadsFor(options), [this](ListedMessages listed) { take(std::move(listed)); })
    {
    }

    void run()
    {
        MailPlace place;
        while (mSource.next(place)) {
            mBytes += place.length;
            mPlaces.push_back(place);
            if (mPlaces.size() >= kMostMessagesOfAJob || mBytes >= kMostBytesOfAJob)
                handIn();
        }
        handIn();
        mJobs.finish();
        if (!wasInterrupted())
            printSorted();
    }

private:
    static int threadsFor(const ListOptions& options)
    {
        return options.jobs > 0 ? static_cast<int>(options.jobs) : QThread::idealThreadCount();
    }

    void handIn()
    {
        mJobs.add([places = std::move(mPlaces), this] { return listMessages(places, mOptions); });
        mPlaces.clear();
        mBytes = 0;
    }

    void take(ListedMessages listed)
    {
        mBar.advance(listed.bytes);
        for (ListRow& row : listed.rows) {
            if (mOptions.format.sort.empty() && !mOptions.format.reverse)
                mSession.print(row.line);
            else
                mRows.push_back(std::move(row));
        }
    }

    void printSorted()
    {
        std::stable_sort(mRows.begin(), mRows.end(), isBefore);
        if (mOptions.format.reverse)
            std::reverse(mRows.begin(), mRows.end());
        for (const ListRow& row : mRows)
            mSession.print(row.line);
    }

    const ListOptions& mOptions;
    Session& mSession;
    MailSource mSource;
    ProgressBar mBar;
    std::vector<MailPlace> mPlaces;
    qint64 mBytes = 0;
    std::vector<ListRow> mRows;
    OrderedJobs<ListedMessages> mJobs;
};

void list(ListOptions& options, Session& session)
{
    const InterruptGuard guard;
    options.format.width = outputWidth();
    Listing(options, session).run();
    if (wasInterrupted())
        session.setInterrupted();
}

} // namespace

void addList(CLI::App& tool, Session& session)
{
    const auto options = std::make_shared<ListOptions>();
    Arguments arguments(
        tool, "list", "Print a line for each message of files, folders, Maildirs and mboxes",
        "A line holds date (in local time), sender, marks and subject: \"@2\" marks two\n"
        "attachments, \"!\" a message that is not complete. It fits into the terminal. With\n"
        "--json it is one object.\n"
        "\n"
        "Example:\n"
        "  tarvomime list ~/Maildir --sort date\n"
        "  tarvomime list --json archive.mbox | jq -r 'select(.attachments > 3) | .subject'\n"
        "  tarvomime list --files ~/Maildir | grep Rechnung");
    ListFormat& format = options->format;
    addMailInputs(arguments, options->inputs);
    arguments.charset(options->inputs.charset);
    arguments.json(format.json);
    arguments.flag("--files", format.files, "Name the file of each message");
    arguments.choice("--sort", format.sort, {"date", "from", "subject", "size"},
                     "Sort (subjects without \"Re:\"); without it, as messages are found");
    arguments.flag("--reverse", format.reverse, "Turn the order round");
    arguments.number("--jobs", options->jobs, 1, "Threads to work with (default: one a processor)");
    addColor(arguments, format.color);
    arguments.run([options, &session] { list(*options, session); });
}

} // namespace tarvomime::tool
