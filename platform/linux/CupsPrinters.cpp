// SPDX-License-Identifier: MIT
#include "platform/linux/CupsPrinters.h"

#include <algorithm>
#include <memory>

#include <cups/cups.h>

namespace giggle {

namespace {

constexpr double PointsPerUnit = 72 / 2540.0; // the service counts in hundredths of a millimetre

/// The destinations that the service knows, freed at the end.
class Destinations {
public:
    Destinations() : m_count(cupsGetDests2(CUPS_HTTP_DEFAULT, &m_first)) {}

    Destinations(const Destinations&) = delete;
    Destinations& operator=(const Destinations&) = delete;

    ~Destinations() { cupsFreeDests(m_count, m_first); }

    [[nodiscard]] cups_dest_t* begin() const { return m_first; }

    [[nodiscard]] cups_dest_t* end() const { return m_first + m_count; }

private:
    cups_dest_t* m_first = nullptr;
    int m_count;
};

struct FreeInformation {
    void operator()(cups_dinfo_t* information) const { cupsFreeDestInfo(information); }
};

struct FreeDestination {
    void operator()(cups_dest_t* destination) const { cupsFreeDests(1, destination); }
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

Paper paper(cups_dest_t& destination, cups_dinfo_t* information, cups_size_t& size)
{
    Paper paper{.name = {},
                .media = QString::fromUtf8(size.media),
                .size = QSizeF(size.width, size.length) * PointsPerUnit};
    paper.name = QString::fromUtf8(
        cupsLocalizeDestMedia(CUPS_HTTP_DEFAULT, &destination, information, CUPS_MEDIA_FLAGS_DEFAULT, &size));
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
void addPapers(Printer& printer, cups_dest_t& destination)
{
    const std::unique_ptr<cups_dinfo_t, FreeInformation> information(
        cupsCopyDestInfo(CUPS_HTTP_DEFAULT, &destination));
    if (!information)
        return;
    cups_size_t size{};
    const int count =
        cupsGetDestMediaCount(CUPS_HTTP_DEFAULT, &destination, information.get(), CUPS_MEDIA_FLAGS_DEFAULT);
    for (int i = 0; i < count; ++i) {
        if (cupsGetDestMediaByIndex(CUPS_HTTP_DEFAULT, &destination, information.get(), i,
                                    CUPS_MEDIA_FLAGS_DEFAULT, &size))
            addPaper(printer.papers, paper(destination, information.get(), size));
    }
    if (cupsGetDestMediaDefault(CUPS_HTTP_DEFAULT, &destination, information.get(), CUPS_MEDIA_FLAGS_DEFAULT,
                                &size))
        printer.defaultMedia = QString::fromUtf8(size.media);
}

} // namespace

std::vector<Printer> CupsPrinters::available()
{
    std::vector<Printer> printers;
    for (cups_dest_t& destination : Destinations()) {
        Printer printer{.name = QString::fromUtf8(destination.name),
                        .description = option(destination, "printer-info"),
                        .isDefault = destination.is_default != 0,
                        .papers = {},
                        .defaultMedia = {}};
        if (destination.instance)
            continue; // the same printer with other settings
        if (printer.description.isEmpty())
            printer.description = printer.name;
        addPapers(printer, destination);
        printers.push_back(std::move(printer));
    }
    return printers;
}

QString CupsPrinters::print(const PrintJob& job)
{
    const QByteArray name = job.printer.toUtf8();
    const std::unique_ptr<cups_dest_t, FreeDestination> destination(
        cupsGetNamedDest(CUPS_HTTP_DEFAULT, name.constData(), nullptr));
    if (!destination)
        return QStringLiteral("The printer is not there any more.");
    Options options;
    for (int i = 0; i < destination->num_options; ++i)
        options.set(destination->options[i].name, destination->options[i].value);
    options.set("copies", QByteArray::number(job.copies));
    options.set("media", job.media.toUtf8());
    const int id = cupsPrintFile2(CUPS_HTTP_DEFAULT, name.constData(), job.file.toUtf8().constData(),
                                  job.title.toUtf8().constData(), options.count, options.first);
    return id > 0 ? QString() : QString::fromUtf8(cupsLastErrorString());
}

} // namespace giggle
