#include <quorixbizmodel/capability/configxml_p.h>
#include <quorixbizmodel/common/quorixbizconstants.h>

#include <QCoreApplication>
#include <QDomDocument>
#include <QStringView>
#include <QVariant>
#include <QXmlInputSource>

#include <charconv>
#include <cmath>

namespace Quorix::BizModel::ConfigXml {

namespace {

/// The text of a document, decoded as QDomDocument would: by byte order mark, then by XML declaration.
QString decode(const QByteArray &xml) {
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QXmlInputSource source;
    source.setData(xml);
    return source.data();
    QT_WARNING_POP
}

/// One walk over a document's markup that looks at nothing but its size. It agrees with the parser up to the first
/// mistake of a document, and there the parser ends.
class LimitScan {
public:
    explicit LimitScan(QStringView text) : m_text(text) {}

    bool passes(ParseError &error) {
        while (m_at < m_text.size()) {
            const auto open = m_text.indexOf(QLatin1Char('<'), m_at);
            if (open < 0)
                return true;
            m_at = open;
            if (const char *reason = step()) {
                error.text = QCoreApplication::translate("ConfigXml", reason);
                const QStringView before = m_text.left(m_at);
                error.line = 1 + static_cast<int>(std::count(before.begin(), before.end(), QLatin1Char('\n')));
                error.column = static_cast<int>(m_at - before.lastIndexOf(QLatin1Char('\n')));
                return false;
            }
        }
        return true;
    }

private:
    bool looksAt(const char *markup) const { return m_text.mid(m_at).startsWith(QLatin1String(markup)); }
    /// Passes markup up to its @p end, which may not share characters with its @p opening: "<!-->" opens a comment
    /// only.
    bool skips(const char *opening, const char *end) {
        if (!looksAt(opening))
            return false;
        const QLatin1String mark(end);
        const auto found = m_text.indexOf(mark, m_at + QLatin1String(opening).size());
        m_at = found < 0 ? m_text.size() : found + mark.size();
        return true;
    }

    /// Passes one piece of markup; a reason ends the walk.
    const char *step() {
        return skips("<!--", "-->") || skips("<![CDATA[", "]]>") || skips("<?", "?>") ? nullptr : tag();
    }

    const char *tag() {
        const bool isDeclaration = looksAt("<!");
        const bool isEnd = looksAt("</");
        int attributes = 0;
        QChar quote;
        QChar last;
        for (++m_at; m_at < m_text.size(); ++m_at) {
            const QChar c = m_text.at(m_at);
            if (!quote.isNull()) {
                if (c == quote)
                    quote = QChar();
                continue;
            }
            if (c == QLatin1Char('>'))
                break;
            if (c == QLatin1Char('"') || c == QLatin1Char('\''))
                quote = c;
            else if (c == QLatin1Char('[') && isDeclaration)
                return QT_TRANSLATE_NOOP("ConfigXml", "internal document type definitions are not supported");
            else if (c == QLatin1Char('=') && ++attributes > kMaxAttributes)
                return QT_TRANSLATE_NOOP("ConfigXml", "an element has too many attributes");
            last = c;
        }
        if (isEnd)
            --m_depth;
        else if (!isDeclaration && last != QLatin1Char('/') && ++m_depth > kMaxDepth)
            return QT_TRANSLATE_NOOP("ConfigXml", "elements are nested too deeply");
        return nullptr;
    }

    QStringView m_text;
    qsizetype m_at = 0;
    int m_depth = 0;
};

/// The ASCII form of a number without the blanks round it; empty for other characters.
QByteArray numberText(const QString &text) {
    const QString trimmed = text.trimmed();
    for (const QChar c : trimmed)
        if (c.unicode() > 127)
            return {};
    QByteArray ascii = trimmed.toLatin1();
    // std::from_chars takes no plus sign; "+-1" is no number either way.
    if (ascii.size() > 1 && ascii.at(0) == '+' && ascii.at(1) != '-')
        ascii.remove(0, 1);
    return ascii;
}

template <class T>
bool parseNumber(const QString &text, T &value) {
    const QByteArray ascii = numberText(text);
    T parsed{};
    const char *end = ascii.constData() + ascii.size();
    const auto [stop, failure] = std::from_chars(ascii.constData(), end, parsed);
    if (failure != std::errc() || stop != end)
        return false;
    value = parsed;
    return true;
}

} // namespace

bool parse(const QByteArray &xml, QDomDocument &document, ParseError &error) {
    const QString text = decode(xml);
    return LimitScan(text).passes(error) && document.setContent(text, true, &error.text, &error.line, &error.column);
}

bool isVersion1(const QDomElement &root) {
    const QString version = QStringLiteral("version");
    return !root.hasAttribute(version) || root.attribute(version) == QLatin1String("1.0");
}

bool parseInteger(const QString &text, qint64 &value) { return parseNumber(text, value); }

bool parseReal(const QString &text, float &value) {
    float parsed = 0.0F;
    if (!parseNumber(text, parsed) || !std::isfinite(parsed))
        return false;
    value = parsed;
    return true;
}

QMap<QString, QString> readNames(const QDomElement &name) {
    QMap<QString, QString> names;
    for (const char *language : {Constants::LANGUAGE_EN, Constants::LANGUAGE_ZHCN}) {
        const QLatin1String key(language);
        names.insert(key, name.firstChildElement(key).text());
    }
    return names;
}

QString nameIn(const QMap<QString, QString> &names, const QString &language) {
    QString key = language;
    if (key.isEmpty() && QCoreApplication::instance() != nullptr)
        key = QCoreApplication::instance()->property("quorix_locale").toString();
    const auto found = names.constFind(key);
    return found != names.constEnd() ? *found : names.value(QLatin1String(Constants::LANGUAGE_EN));
}

} // namespace Quorix::BizModel::ConfigXml
