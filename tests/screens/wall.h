/// A device with outputs and one screen of each programme kind, empty and joined to the hub.
#ifndef QUORIX_TESTS_WALL_H
#define QUORIX_TESTS_WALL_H

#include <quorixbizmodel/screens/screenkinds.h>
#include <support/messagelog.h>
#include <topology/interfaces.h>

#include <QRegularExpression>

#include <functional>
#include <initializer_list>
#include <limits>
#include <memory>
#include <type_traits>
#include <vector>

namespace Quorix::Tests {

using namespace BizModel;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

/// A setter and its arguments, as an entry of a table.
template <class T, class... Parameter>
std::function<void(T &)> call(void (T::*setter)(Parameter...),
                              std::type_identity_t<std::decay_t<Parameter>>... arguments) {
    return [=](T &object) { std::invoke(setter, object, arguments...); };
}

/// Objects of the wall: "device", "input" (slot 1, port 0, 3840 by 2160 pixels asked for), the full-HD outputs
/// "output0" (slot 6, mirrored by "twin"), "output1" to "output4" (slot 7, ports 0 to 3), the screens "regular" and
/// "aux", both with id 0. Both stand in the device. `log` hears the hub and has been emptied.
struct Wall : Interfaces {
    std::vector<std::shared_ptr<Output>> outputs; ///< without the twin
    std::shared_ptr<Output> twin;
    std::shared_ptr<RegularScreen> regular;
    std::shared_ptr<AuxScreen> aux;
    MessageLog messages;

    void SetUp() override {
        Interfaces::SetUp();
        Body second = outputCard();
        second.slotId = 7;
        second.connectors[1] = {.id = 1, .type = 2, .copyId = kNoCopy, .workMode = 0, .capacityMode = 0};
        for (const int port : {2, 3})
            second.connectors.push_back({.id = port, .type = 2, .copyId = kNoCopy, .workMode = 0, .capacityMode = 0});
        reported(outputCard());
        reported(second);
        outputs = {addedOutput(6, 0, QStringLiteral("output0"))};
        twin = addedOutput(6, 1, QStringLiteral("twin"));
        for (int port = 0; port < 4; ++port)
            outputs.push_back(addedOutput(7, port, QStringLiteral("output%1").arg(port + 1)));
        regular = addedScreen<RegularScreen>(QStringLiteral("regular"));
        aux = addedScreen<AuxScreen>(QStringLiteral("aux"));
        log.take();
        MessageLog::take();
    }

    /// A screen in the device; its name in the log is its name, too.
    template <class T>
    std::shared_ptr<T> addedScreen(const QString &name, uint8_t id = 0) {
        auto screen = std::make_shared<T>();
        screen->setScreenId(id);
        screen->setName(name);
        screen->setOwerDevice(device);
        screen->createConnects(device);
        device->appendScreen(screen);
        log.name(screen.get(), name);
        return screen;
    }

    /// Outputs of `outputs`, left to right from 0, 0; their events are taken off the log.
    void place(Screen &screen, std::initializer_list<std::size_t> numbers) {
        int x = 0;
        for (const auto number : numbers) {
            ASSERT_TRUE(screen.addOutput(outputs.at(number), {x, 0}, false));
            x += 1920;
        }
        log.take();
        MessageLog::take();
    }

    /// Everything heard, with what leads each event (the device and the screen) and "signal" left out.
    QStringList events(const QString &screen = QStringLiteral("regular")) {
        QStringList texts = log.take();
        texts.replaceInStrings("device, " + screen + ", ", QString());
        texts.replaceInStrings("device, " + screen, QString());
        texts.replaceInStrings(QRegularExpression(QStringLiteral("^signal")), QString());
        return texts;
    }

private:
    std::shared_ptr<Output> addedOutput(int slot, int port, const QString &name) {
        Detail detail = detailOf(slot, port, 4);
        detail.presetTiming = fullHd();
        detail.general.name = name.toStdString();
        QString error;
        EXPECT_TRUE(device->addInterface(detail, error)) << error.toStdString();
        auto output = device->findOutput(static_cast<uint8_t>(slot), static_cast<uint8_t>(port)).lock();
        log.name(output.get(), name);
        return output;
    }
};

} // namespace Quorix::Tests

#endif
