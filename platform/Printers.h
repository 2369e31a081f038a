// SPDX-License-Identifier: MIT
#pragma once

#include <QSizeF>
#include <QString>

#include <memory>
#include <stop_token>
#include <vector>

namespace giggle {

/// A size of paper.
struct Paper {
    QString name;  ///< as the user knows it: "A4"
    QString media; ///< as a printer is told: "iso_a4_210x297mm"
    QSizeF size;   ///< upright, in points

    bool operator==(const Paper&) const = default;
};

struct Printer {
    QString name;        ///< what the system calls it by
    QString description; ///< what the user knows it by
    bool isDefault = false;
    std::vector<Paper> papers; ///< may be empty where the printer does not tell
    QString defaultMedia;      ///< empty where the printer does not tell

    bool operator==(const Printer&) const = default;
};

struct PrintJob {
    QString printer; ///< its name
    QString file;    ///< a PDF file, needed no longer than the call lasts
    QString title;
    int copies = 1;
    QString media;
};

/// The printers that the system has. Both calls may take seconds, or not return at all: they are made from
/// threads that can wait, several of them at once too. A call whose answer nobody waits for any more is
/// stopped; it then returns as soon as it can, with any answer.
class Printers {
public:
    Printers() = default;
    Printers(const Printers&) = delete;
    Printers& operator=(const Printers&) = delete;
    virtual ~Printers() = default;

    /// The same printers, for a thread that may outlive this object. Called where this object lives.
    [[nodiscard]] virtual std::shared_ptr<Printers> share() = 0;

    /// Those that can be printed on at the moment; none where there is no printing service.
    [[nodiscard]] virtual std::vector<Printer> available(const std::stop_token& stop) = 0;

    /// Hands a job to the printing service. Why it was not taken, in words, or nothing. A job that is stopped
    /// is not printed if the service can still be told.
    [[nodiscard]] virtual QString print(const PrintJob& job, const std::stop_token& stop) = 0;
};

} // namespace giggle
