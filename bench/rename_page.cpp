// How long a rename takes in a Website of 2,000 pages, each with a menu that links to the renamed page, as a ratio to
// the time in which `cp -r` copies the same files. Both are measured in turns in one run; the medians count.

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

#include "site/broken_links.h"
#include "site/page_name.h"
#include "site/page_operations.h"
#include "site/website_listing.h"

namespace {

using namespace Qt::StringLiterals;
using namespace pondera;

constexpr int kPages = 2000;
constexpr int kMenuEntries = 12;
constexpr int kRounds = 5;

QString page_name(int number) {
    return page_file_name(PageKind::kSubject, u"Subject number %1"_s.arg(number));
}

/// A page as the editing control writes it, of 15 to 20 KB, with a menu whose second entry leads to the renamed page.
QString page_text(int number, const QString& renamed) {
    QString menu;
    for (int i = 0; i < kMenuEntries; ++i)
        menu +=
            u"\r\n<TD><A href=\"%1\"><FONT face=Verdana color=#1f4e5f size=2>Subject number %2</FONT></A></TD>"_s.arg(
                i == 1 ? renamed : page_name((number + i * 83) % kPages).replace(u' ', u"%20"_s), QString::number(i));
    const QString paragraph =
        u"\r\n<P><FONT face=Verdana size=2>These are the words of a paragraph, as people write them: what there is to "
        "see, when the doors open, whom to ask, and why it is worth the way. It goes on for a few lines, so that the "
        "page looks like one that somebody made with care.</FONT></P>"_s;
    const QString picture =
        u"\r\n<IMG style=\"Z-INDEX: 83%1; LEFT: 23%1px; POSITION: absolute; TOP: 10%1px\" alt=\"\" "
        "src=\"media/img/picture-%1.jpg\" name=picturex%1xjpg>"_s;
    QString text =
        u"<HTML><HEAD><META http-equiv=Content-Type content=\"text/html; charset=utf-8\"><TITLE>Subject number "
        u"%1</TITLE>"
        "</HEAD>\r\n<BODY bgcolor=#ffffff>\r\n<TABLE><TBODY><TR>"_s.arg(number) +
        menu + u"</TR></TBODY></TABLE>\r\n<H1>Città, città, numero %1</H1>"_s.arg(number);
    for (int i = 0; i < 38 + number % 18; ++i) {
        text += paragraph;
        if (i % 5 == 0) text += picture.arg(i % 10);
    }
    return text + u"\r\n</BODY></HTML>"_s;
}

void make_website(const QDir& website) {
    QDir().mkpath(website.filePath(u"media/img"_s));
    const QString renamed = page_name(1).replace(u' ', u"%20"_s);
    for (int i = 0; i < kPages; ++i) {
        const QString page = i == 0 ? kHomePage : page_name(i);
        const QByteArray bytes = page_text(i, renamed).toUtf8();
        for (const QString& file : {page, editing_copy_name(page)}) {
            QFile out(website.filePath(file));
            if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size()) qFatal("no Website to measure");
        }
    }
}

double milliseconds(const std::function<void()>& work) {
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double median(std::vector<double> times) {
    std::ranges::sort(times);
    return times[times.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QTemporaryDir base;
    const QDir website(base.filePath(u"Site"_s));
    make_website(website);

    std::vector<double> copies;
    std::vector<double> renames;
    std::vector<double> listings;
    for (int round = 0; round < kRounds; ++round) {
        const QString copy = base.filePath(u"copy%1"_s.arg(round));
        copies.push_back(milliseconds([&] {
            if (QProcess::execute(u"cp"_s, {u"-r"_s, website.path(), copy}) != 0) qFatal("cp failed");
        }));
        const QString old_name = round == 0 ? page_name(1) : page_file_name(PageKind::kSubject, u"Trip%1"_s.arg(round));
        renames.push_back(milliseconds([&] {
            const PageOutcome outcome = rename_page(website.path(), old_name, u"Trip%1"_s.arg(round + 1));
            if (!outcome.done || !outcome.message.isEmpty()) qFatal("not renamed");
        }));
        listings.push_back(milliseconds([&] {
            if (list_pages(website.path()).size() != kPages) qFatal("not listed");
        }));
    }
    std::printf("rename a page, %d pages with a link to it: %.0f ms; cp -r of the same files: %.0f ms; ratio %.2f\n",
                kPages, median(renames), median(copies), median(renames) / median(copies));
    std::printf("list the pages: %.1f ms\n", median(listings));
    std::printf("look for broken links: %.0f ms\n",
                milliseconds([&] { (void)broken_links(website.path()).broken.size(); }));
    return 0;
}
