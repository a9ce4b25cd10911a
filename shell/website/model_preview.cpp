#include "shell/website/model_preview.h"

#include <QDir>
#include <QEventLoop>
#include <QTimer>
#include <QWebEngineSettings>
#include <QWebEngineView>

#include "base/roots.h"
#include "site/interface_models.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

// As the shipped previews are made: a window a little wider than the models' pages, and small enough for the pickers.
constexpr QSize kWindow{1120, 840};
constexpr QSize kPreview{480, 360};
constexpr int kLongestLoadMs = 10000;
constexpr int kPaintMs = 150;
constexpr int kMostPaints = 20;

void wait(QEventLoop& loop, int ms) {
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

bool load(QWebEngineView& view, const QString& card) {
    QEventLoop loop;
    bool loaded = false;
    QObject::connect(&view, &QWebEngineView::loadFinished, &loop, [&](bool ok) {
        loaded = ok;
        loop.quit();
    });
    view.setUrl(QUrl::fromLocalFile(card));
    wait(loop, kLongestLoadMs);
    return loaded;
}

/// True while the engine has painted nothing: all of the picture has one colour.
bool is_blank(const QImage& picture) {
    const QImage small = picture.scaled(kPreview / 4).convertToFormat(QImage::Format_RGB32);
    const QRgb first = small.pixel(0, 0);
    for (int y = 0; y < small.height(); ++y)
        for (int x = 0; x < small.width(); ++x)
            if (small.pixel(x, y) != first) return false;
    return true;
}

QImage photograph(QWebEngineView& view) {
    QImage picture;
    for (int paint = 0; paint < kMostPaints; ++paint) {
        QEventLoop loop;
        wait(loop, kPaintMs);
        picture = view.grab().toImage();
        if (!is_blank(picture)) break;
    }
    return picture.scaled(kPreview, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

void photograph_model(const Roots& roots, const QString& model) {
    QWebEngineView view;
    view.setAttribute(Qt::WA_DontShowOnScreen);
    view.settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, false);
    view.settings()->setAttribute(QWebEngineSettings::ShowScrollBars, false);
    view.resize(kWindow);
    for (const int card : interface_model_cards(roots, model)) {
        if (!load(view, interface_model_card(roots, model, card))) continue;
        view.show();  // only now: a window that is there before its first page is made anew by it, and then on the
                      // screen
        const QString path = interface_model_preview(roots, model, card);
        QDir().mkpath(QFileInfo(path).path());
        photograph(view).save(path);
    }
}

}  // namespace pondera
