// SPDX-License-Identifier: MIT
#include "platform/linux/CupsPrinters.h"

#include <algorithm>
#include <atomic>
#include <functional>
#include <memory>

#include <cups/cups.h>

namespace giggle {

namespace {

constexpr double PointsPerUnit = 72 / 2540.0; // the service counts in hundredths of a millimetre

constexpr int ConnectingMilliseconds = 5000;
constexpr double SecondsBetweenLooks = 0.2;
constexpr double LookingSeconds = 20;
constexpr double PrintingSeconds = 60;

/// A connection to the service. It gives up when it is stopped, and when it has waited for that many seconds
/// in all. The connection that the library makes itself would wait for minutes.
class Connection {
public:
    Connection(const std::stop_token& stop, double patience)
        : m_stop(stop), m_patience(patience), m_endConnecting(stop, [this] {
              std::atomic_ref(m_isCancelled).store(1); // the library looks at it again and again
          })
    {
        m_http = httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                              ConnectingMilliseconds, &m_isCancelled);
        if (m_http)
            httpSetTimeout(m_http, SecondsBetweenLooks, mayWait, this);
    }

    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    ~Connection() { httpClose(m_http); }

    /// nullptr where there is no service. The library takes that for its own connection: look first.
    [[nodiscard]] http_t* get() const { return m_http; }

    [[nodiscard]] bool hasGivenUp() const { return m_patience <= 0 || m_stop.stop_requested(); }

private:
    /// Asked each time that nothing has come for a while.
    static int mayWait(http_t* http, void* connection)
    {
        auto& self = *static_cast<Connection*>(connection);
        self.m_patience -= SecondsBetweenLooks;
        if (self.hasGivenUp()) // the library tries again in several ways, which shall not take long
            httpSetTimeout(http, 0.01, mayWait, &self);
        return !self.hasGivenUp();
    }

    std::stop_token m_stop;
    double m_patience;
    int m_isCancelled = 0;
    std::stop_callback<std::function<void()>> m_endConnecting;
    http_t* m_http = nullptr;
};

/// The destinations that the service knows, freed at the end.
class Destinations {
public:
    explicit Destinations(http_t* http) : m_count(cupsGetDests2(http, &m_first)) {}

    Destinations(const Destinations&) = delete;
    Destinations& operator=(const Destinations&) = delete;

    ~Destinations() { cupsFreeDests(m_count, m_first); }

    /// nullptr where there is none of that name.
    [[nodiscard]] const cups_dest_t* find(const QByteArray& name) const
    {
        return cupsGetDest(name.constData(), nullptr, m_count, m_first);
    }

    [[nodiscard]] cups_dest_t* begin() const { return m_first; }

    [[nodiscard]] cups_dest_t* end() const { return m_first + m_count; }

private:
    cups_dest_t* m_first = nullptr;
    int m_count;
};

struct FreeInformation {
    void operator()(cups_dinfo_t* information) const { cupsFreeDestInfo(information); }
};

/// Options of a job, freed at the end.
class Options {
public:
    Options() = default;
    Options(const Options&) = delete;
    Options& operator=(const Options&) = delete;

    ~Options() { cupsFreeOptions(count, first); }

    void set(const char* name, const QByteArray& value)
    {
        if (!value.isEmpty())
            count = cupsAddOption(name, value.constData(), count, &first);
    }

    cups_option_t* first = nullptr;
    int count = 0;
};

QString option(const cups_dest_t& destination, const char* name)
{
    return QString::fromUtf8(cupsGetOption(name, destination.num_options, destination.options));
}

Paper paper(http_t* http, cups_dest_t& destination, cups_dinfo_t* information, cups_size_t& size)
{
    Paper paper{.name = {},
                .media = QString::fromUtf8(size.media),
                .size = QSizeF(size.width, size.length) * PointsPerUnit};
    paper.name = QString::fromUtf8(
        cupsLocalizeDestMedia(http, &destination, information, CUPS_MEDIA_FLAGS_DEFAULT, &size));
    if (paper.name.isEmpty())
        paper.name = paper.media;
    return paper;
}

bool isBorderless(const Paper& paper)
{
    return paper.media.endsWith(QLatin1StringView("_borderless"));
}

/// Of a size that can be printed on with and without a border, the pages that have one take the former.
void addPaper(std::vector<Paper>& papers, const Paper& paper)
{
    if (paper.size.isEmpty())
        return;
    const auto known = std::ranges::find(papers, paper.size, &Paper::size);
    if (known == papers.end())
        papers.push_back(paper);
    else if (isBorderless(*known) && !isBorderless(paper))
        *known = paper;
}

/// Asks for the sizes.
void addPapers(http_t* http, Printer& printer, cups_dest_t& destination)
{
    const std::unique_ptr<cups_dinfo_t, FreeInformation> information(cupsCopyDestInfo(http, &destination));
    if (!information)
        return;
    cups_size_t size{};
    const int count = cupsGetDestMediaCount(http, &destination, information.get(), CUPS_MEDIA_FLAGS_DEFAULT);
    for (int i = 0; i < count; ++i) {
        if (cupsGetDestMediaByIndex(http, &destination, information.get(), i, CUPS_MEDIA_FLAGS_DEFAULT,
                                    &size))
            addPaper(printer.papers, paper(http, destination, information.get(), size));
    }
    if (cupsGetDestMediaDefault(http, &destination, information.get(), CUPS_MEDIA_FLAGS_DEFAULT, &size))
        printer.defaultMedia = QString::fromUtf8(size.media);
}

} // namespace

std::vector<Printer> CupsPrinters::available(const std::stop_token& stop)
{
    const Connection connection(stop, LookingSeconds);
    if (!connection.get())
        return {};
    std::vector<Printer> printers;
    for (cups_dest_t& destination : Destinations(connection.get())) {
        Printer printer{.name = QString::fromUtf8(destination.name),
                        .description = option(destination, "printer-info"),
                        .isDefault = destination.is_default != 0,
                        .papers = {},
                        .defaultMedia = {}};
        if (destination.instance)
            continue; // the same printer with other settings
        if (printer.description.isEmpty())
            printer.description = printer.name;
        addPapers(connection.get(), printer, destination);
        printers.push_back(std::move(printer));
    }
    return printers;
}

QString CupsPrinters::print(const PrintJob& job, const std::stop_token& stop)
{
    const Connection connection(stop, PrintingSeconds);
    http_t* http = connection.get();
    const QString silence = QStringLiteral("The printing service does not answer.");
    if (!http)
        return silence;
    const QByteArray name = job.printer.toUtf8();
    const Destinations destinations(http); // looking for one by its name would not keep to this connection
    const cups_dest_t* destination = destinations.find(name);
    if (!destination)
        return connection.hasGivenUp() ? silence : QStringLiteral("The printer is not there any more.");
    Options options;
    for (int i = 0; i < destination->num_options; ++i)
        options.set(destination->options[i].name, destination->options[i].value);
    options.set("copies", QByteArray::number(job.copies));
    options.set("media", job.media.toUtf8());
    const int id = cupsPrintFile2(http, name.constData(), job.file.toUtf8().constData(),
                                  job.title.toUtf8().constData(), options.count, options.first);
    if (id > 0 && stop.stop_requested())
        cupsCancelJob2(http, name.constData(), id, 0);
    return id > 0 ? QString() : QString::fromUtf8(cupsLastErrorString());
}

} // namespace giggle
