// How long a save takes: the whole of it, and its parts, on a page of 1 MB with 2,000 positioned elements.

#include <QApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include "base/roots.h"
#include "base/text_file.h"
#include "elements/published_page.h"
#include "shell/editing/dhtml_edit.h"
#include "shell/engine_sandbox.h"
#include "shell/page/open_page.h"
#include "shell/site_tree.h"
#include "workbench/progress.h"
#include "workbench/prompts.h"

namespace {

using namespace Qt::StringLiterals;
using namespace pondera;

class Nobody : public Prompts {
  public:
    Answer message(const Message& message) override { return message.answers.constFirst(); }
    bool run(QDialog&) override { return false; }
    std::optional<QString> choose_file(const FileQuestion&) override { return {}; }
    std::optional<QString> choose_new_file(const FileQuestion&) override { return {}; }
    std::optional<QString> choose_folder(const QString&, const QString&) override { return {}; }
    std::optional<QColor> choose_colour(const QString&, const QColor&) override { return {}; }
};

class NoProgress : public Progress {
  public:
    void begin(const QString&, const QString&, int, Cancelling) override {}
    void set_steps(int) override {}
    void advance(int) override {}
    [[nodiscard]] bool cancelled() const override { return false; }
    void end() override {}
};

QString large_page() {
    QString page = u"<html><head><title>Large</title></head><body>"_s;
    const QString words = u"These are the words of a long paragraph, as people write them. "_s.repeated(7);
    for (int i = 0; i < 2000; ++i) {
        page +=
            u"<p>%1</p><img name=n%2 src=\"media/img/a.jpg\" style=\"position: absolute; left: %2; top: %2; z-index: %2\">"_s
                .arg(words)
                .arg(i);
    }
    return page + u"</body></html>"_s;
}

/// One large page, open in the editing control.
struct Bench {
    QTemporaryDir home;
    Roots roots{home.filePath(u"Pondera_Folder"_s)};
    DHTMLEdit editor;
    Nobody nobody;
    NoProgress progress;
    OpenPage page{roots, editor, nobody, progress, [] { return true; }};

    Bench() {
        const QString folder = roots.website(u"Site"_s);
        if (!QDir().mkpath(folder) || !write_text_file(folder + u"/çindex.htm"_s, large_page(), TextEncoding::kUtf8) ||
            !page.NUOVA_VIDEATA(folder, u"index.htm"_s)) {
            qFatal("the page cannot be prepared");
        }
    }
};

void register_benchmarks(Bench& bench) {
    benchmark::RegisterBenchmark("save the page",
                                 [&bench](benchmark::State& state) {
                                     for (auto _ : state) {
                                         if (!bench.page.Salvataggio_Doc_Cor()) state.SkipWithError("not saved");
                                     }
                                 })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
    benchmark::RegisterBenchmark("of it, the text from the control",
                                 [&bench](benchmark::State& state) {
                                     for (auto _ : state) benchmark::DoNotOptimize(bench.editor.text());
                                 })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
    benchmark::RegisterBenchmark("of it, the conversion",
                                 [&bench](benchmark::State& state) {
                                     const QString text = bench.editor.text();
                                     for (auto _ : state)
                                         benchmark::DoNotOptimize(convert_page(text, {bench.roots, u"Site"_s, {}, {}}));
                                 })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
    benchmark::RegisterBenchmark("show 2,000 pages in the tree",
                                 [](benchmark::State& state) {
                                     SiteTree tree(nullptr);
                                     QStringList pages{u"index.htm"_s};
                                     for (int n = 1; n < 1000; ++n)
                                         pages += {u"_4_Page%1.htm"_s.arg(n), u"_4_Page%1_page1_.htm"_s.arg(n)};
                                     for (auto _ : state) tree.show_website(u"Site"_s, pages);
                                 })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    set_up_engine_sandbox();
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    Bench bench;
    register_benchmarks(bench);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
