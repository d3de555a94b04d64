/// A device with outputs and one screen of each programme kind, empty and joined to the hub.
#ifndef QUORIX_TESTS_WALL_H
#define QUORIX_TESTS_WALL_H

#include <quorixbizmodel/screens/screenkinds.h>
#include <topology/interfaces.h>

#include <QRegularExpression>

#include <limits>

namespace Quorix::Tests {

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

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
        second.connectors = {{.id = 0, .type = 2}, {.id = 1, .type = 2}, {.id = 2, .type = 2}, {.id = 3, .type = 2}};
        reported(outputCard());
        reported(second);
        outputs = {addedOutput(6, 0, "output0")};
        twin = addedOutput(6, 1, "twin");
        for (int port = 0; port < 4; ++port)
            outputs.push_back(addedOutput(7, port, QString("output%1").arg(port + 1)));
        regular = addedScreen<RegularScreen>("regular");
        aux = addedScreen<AuxScreen>("aux");
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
        for (int x = 0; const auto number : numbers) {
            ASSERT_TRUE(screen.addOutput(outputs.at(number), {x, 0}, false));
            x += 1920;
        }
        log.take();
        MessageLog::take();
    }

    /// Everything heard, with what leads each event (the device and the screen) and "signal" left out.
    QStringList events(const QString &screen = "regular") {
        QStringList texts = log.take();
        texts.replaceInStrings(QRegularExpression("device, " + screen + "(, )?"), {});
        texts.replaceInStrings(QRegularExpression("^signal"), {});
        return texts;
    }

private:
    std::shared_ptr<Output> addedOutput(int slot, int port, const QString &name) {
        Detail detail = detailOf(slot, port, 4);
        detail.presetTiming = fullHd();
        detail.general.name = name.toStdString();
        auto output = std::dynamic_pointer_cast<Output>(addedInterface(*device, detail));
        log.name(output.get(), name);
        return output;
    }
};

} // namespace Quorix::Tests

#endif
