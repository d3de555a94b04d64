#include <gmock/gmock.h>

#include <QApplication>

#include <memory>
// Qt defines __has_feature, as always false, for compilers without it.
#if defined(__SANITIZE_ADDRESS__) || __has_feature(address_sanitizer)
#    define QUORIX_FINDS_LEAKS
#    include <sanitizer/lsan_interface.h>
#endif

namespace {

std::unique_ptr<QApplication> makeApplication(int &argc, char **argv) {
#ifdef QUORIX_FINDS_LEAKS
    // Qt's offscreen platform never deletes the screen that it makes here.
    const __lsan::ScopedDisabler disabler;
#endif
    return std::make_unique<QApplication>(argc, argv);
}

} // namespace

/// Test programs of the model run with an application object on the offscreen platform.
int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleMock(&argc, argv);
    const auto application = makeApplication(argc, argv);
    return RUN_ALL_TESTS();
}
