#include <quorixbizmodel/layouts/layerlayout.h>
#include <quorixbizmodel/layouts/mvrlayout.h>
#include <quorixbizmodel/layouts/screenlayout.h>

#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <sanitizer/lsan_interface.h>

using namespace Quorix::BizModel;

namespace {

/// Pictures need the application; it stays to the end.
void makeApplication() {
    // Qt's offscreen platform never deletes the screen that it makes here.
    const __lsan::ScopedDisabler disabler;
    static int argc = 1;
    static char name[] = "fuzz_layouts";
    static char *argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const auto *const application = new QGuiApplication(argc, argv);
    Q_UNUSED(application)
}

} // namespace

/// Any text as the layout file of all three kinds; what was read answers questions. The registers keep every template,
/// so that memory grows through a run.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    makeApplication();
    static const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("layout.xml")));
    if (!file.open(QIODevice::WriteOnly))
        return 0;
    file.write(reinterpret_cast<const char *>(data), static_cast<qint64>(size));
    file.close();
    LayerLayout::instance()->load(folder.path());
    ScreenLayout::instance()->load(folder.path());
    MvrLayout::instance()->load(folder.path());
    const QString name = QStringLiteral("A");
    LayerLayout::instance()->findLayout(name);
    LayerLayout::instance()->getLayout(LayerLayout::LayerCount::layr_2);
    ScreenLayout::instance()->findLayout(name);
    MvrLayout::instance()->findLayout(name);
    return 0;
}
