#include <quorixbizmodel/layouts/layoutxml_p.h>

#include <QByteArray>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImageReader>

#include <algorithm>
#include <charconv>
#include <limits>
#include <stdexcept>
#include <string_view>

namespace Quorix::BizModel::LayoutXml {

namespace {

/// Longest side of a picture that is loaded, in pixels. A small file may claim any size.
constexpr int kMaxSide = 16384;

/// One walk over a document's markup that looks at nothing but its depth. It takes each piece as the parser does, so
/// that nothing hides an element from it, up to the first mistake of a document: there the parser ends.
class DepthScan {
public:
    /// @param text up to its terminating zero, where the parser ends too
    explicit DepthScan(const char *text) : m_rest(text) {}

    bool passes() {
        while (!m_rest.empty() && m_deepest <= kMaxDepth)
            step();
        return m_deepest <= kMaxDepth;
    }

private:
    static constexpr std::string_view kBlanks = " \t\r\n";

    bool take(std::string_view token) {
        if (!m_rest.starts_with(token))
            return false;
        m_rest.remove_prefix(token.size());
        return true;
    }
    void dropBlanks() { m_rest.remove_prefix(std::min(m_rest.find_first_not_of(kBlanks), m_rest.size())); }
    void dropUntil(std::string_view characters) {
        m_rest.remove_prefix(std::min(m_rest.find_first_of(characters), m_rest.size()));
    }
    void dropPast(std::string_view token) {
        m_rest.remove_prefix(std::min(m_rest.find(token), m_rest.size()));
        take(token);
    }

    /// Passes one piece of markup.
    void step() {
        dropUntil("<");
        if (take("<!--"))
            dropPast("-->");
        else if (take("<![CDATA["))
            dropPast("]]>");
        else if (take("<?"))
            dropPast("?>");
        else if (isDocumentType())
            dropDocumentType();
        else if (take("<!"))
            dropPast(">");
        else if (take("</")) {
            dropPast(">");
            --m_depth;
        } else if (take("<")) {
            m_deepest = std::max(m_deepest, ++m_depth);
            if (!opensElement())
                --m_depth;
        }
    }

    bool isDocumentType() const {
        constexpr std::string_view kOpening = "<!DOCTYPE";
        return m_rest.starts_with(kOpening) && m_rest.size() > kOpening.size() &&
               kBlanks.find(m_rest[kOpening.size()]) != std::string_view::npos;
    }

    /// To the parser, brackets nest in it and quotes mean nothing.
    void dropDocumentType() {
        for (int open = 0; !m_rest.empty() && (open > 0 || m_rest.front() != '>'); m_rest.remove_prefix(1)) {
            if (m_rest.front() == '[')
                ++open;
            else if (m_rest.front() == ']' && open > 0)
                --open;
        }
    }

    /// Passes a tag behind its "<"; false for one that is closed at once, or where the parser ends. Names may hold
    /// quotes: only one behind a "=" opens a value.
    bool opensElement() {
        dropUntil(" \t\r\n/>?");
        for (dropBlanks(); !m_rest.empty() && m_rest.front() != '>' && m_rest.front() != '/'; dropBlanks()) {
            dropUntil(" \t\r\n/<>=?!");
            dropBlanks();
            const bool isAssigned = take("=");
            dropBlanks();
            if (isAssigned && take("\""))
                dropPast("\"");
            else if (isAssigned && take("'"))
                dropPast("'");
            else
                m_rest = {};
        }
        return take(">");
    }

    std::string_view m_rest;
    int m_depth = 0;
    int m_deepest = 0;
};

QString text(const Node &element) { return QString::fromUtf8(element.value(), static_cast<int>(element.value_size())); }

QPixmap loadPixmap(const QString &folder, const QString &image) {
    const QString inside = QDir::cleanPath(image);
    if (qobject_cast<QGuiApplication *>(QCoreApplication::instance()) == nullptr || QDir::isAbsolutePath(inside) ||
        inside == QLatin1String("..") || inside.startsWith(QLatin1String("../")))
        return {};
    QImageReader reader(QStringLiteral("%1/%2").arg(folder, inside));
    const QSize size = reader.size();
    if (size.width() > kMaxSide || size.height() > kMaxSide)
        return {};
    return QPixmap::fromImage(reader.read());
}

} // namespace

void load(const QString &folder, const std::function<void(const Node &)> &readLayout) {
    QFile file(QStringLiteral("%1/layout.xml").arg(folder));
    if (!file.open(QIODevice::ReadOnly)) {
        qDebug() << "can not open file [" << folder << "]";
        return;
    }
    try {
        QByteArray xml = file.readAll();
        if (!DepthScan(xml.constData()).passes())
            throw std::runtime_error("elements are nested too deeply");
        rapidxml::xml_document<> document;
        document.parse<rapidxml::parse_default>(xml.data());
        const Node *root = document.first_node("layouts");
        if (root == nullptr) {
            qDebug() << "invalid xml root node [layouts].";
            return;
        }
        for (const Node *node = root->first_node("layout"); node != nullptr; node = node->next_sibling("layout"))
            readLayout(*node);
    } catch (const std::exception &error) {
        qDebug() << "can not read file [" << folder << "]" << error.what();
    }
}

void atApplicationEnd(void (*dropPixmaps)()) {
    qRemovePostRoutine(dropPixmaps);
    qAddPostRoutine(dropPixmaps);
}

std::optional<Head> readHead(const Node &layout, const QString &folder) {
    const Node *name = layout.first_node("name");
    const Node *image = layout.first_node("image");
    if (name == nullptr || image == nullptr) {
        qDebug() << "readLayout"
                 << (name == nullptr ? "invalid xml attrib node [name]." : "invalid xml attrib node [image].");
        return std::nullopt;
    }
    Head head{text(*name), loadPixmap(folder, text(*image))};
    if (head.pixmap.isNull())
        qDebug() << "readLayout"
                 << "unable to load pixmap";
    return head;
}

int number(const Node &parent, const char *tag) {
    const Node *element = parent.first_node(tag);
    if (element == nullptr)
        return 0;
    std::string_view digits(element->value(), element->value_size());
    digits.remove_prefix(std::min(digits.find_first_not_of(" \t\n\v\f\r"), digits.size()));
    if (digits.starts_with('+')) // the one sign that std::from_chars doesn't know
        digits.remove_prefix(digits.starts_with("+-") ? digits.size() : 1);
    int value = 0;
    const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (failure == std::errc::result_out_of_range)
        return digits.front() == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    return value;
}

} // namespace Quorix::BizModel::LayoutXml
