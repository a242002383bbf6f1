#include <measurement/io/detail/DocumentText.h>

#include <QByteArray>
#include <QIODevice>
#include <QTextCodec>
#include <QXmlStreamReader>

namespace tesk::measurement::detail {

namespace {

constexpr int maximumByteCount = 1 << 28;
constexpr int maximumNodeCount = 1 << 24;
constexpr int maximumDepth = 64;
constexpr int maximumAttributeCount = 64;

/// One byte too many is enough to tell that there are too many, also from a device without end.
std::optional<QByteArray> readBytes(QIODevice& device) {
    constexpr qint64 pieceSize = 1 << 16;
    QByteArray bytes;
    for (QByteArray piece = device.read(pieceSize); !piece.isEmpty(); piece = device.read(pieceSize)) {
        if (bytes.size() + piece.size() > maximumByteCount) return std::nullopt;
        bytes += piece;
    }
    return bytes;
}

/// By the byte order mark, else as the XML declaration says, else UTF-8; null for an unknown encoding.
QTextCodec* findCodec(const QByteArray& bytes) {
    // Far more than a declaration needs.
    QXmlStreamReader head(bytes.left(1024));
    if (head.readNext() != QXmlStreamReader::StartDocument) return nullptr;
    QTextCodec* declared = QTextCodec::codecForName("UTF-8");
    if (!head.documentEncoding().isEmpty()) declared = QTextCodec::codecForName(head.documentEncoding().toLatin1());
    return QTextCodec::codecForUtfText(bytes, declared);
}

std::optional<QString> decode(const QByteArray& bytes) {
    QTextCodec* const codec = findCodec(bytes);
    if (!codec) return std::nullopt;
    QTextCodec::ConverterState state;
    const QString text = codec->toUnicode(bytes.constData(), bytes.size(), &state);
    if (state.invalidChars > 0 || state.remainingChars > 0 || !text.isValidUtf16()) return std::nullopt;
    return text;
}

/// Entities expand without bound, attributes get into every element of their name, and the DOM's parser recurses into
/// the parentheses of an element's declaration. Looked for in the bare text, so that it does not matter how a parser
/// understands what stands around it.
bool hasDeclaration(const QString& text) {
    for (const char* start : {"<!ENTITY", "<!ATTLIST", "<!ELEMENT", "<!NOTATION"})
        if (text.contains(start)) return true;
    return false;
}

/// Whether what looks like a tag has too many attributes. The parser compares every attribute of an element with every
/// other before it hands out the element, so that it has to be known beforehand. Each attribute has an opening quote.
bool hasCrowdedTag(const QString& text) {
    bool isInTag = false;
    QChar quote;
    int attributeCount = 0;
    for (const QChar character : text) {
        if (character == '<') {
            // Also within quotes: no value holds one, but this may not have been a tag so far.
            isInTag = true;
            quote = QChar();
            attributeCount = 0;
        } else if (!isInTag) {
            continue;
        } else if (!quote.isNull()) {
            if (character == quote) quote = QChar();
        } else if (character == '>') {
            isInTag = false;
        } else if (character == '"' || character == '\'') {
            quote = character;
            if (++attributeCount > maximumAttributeCount) return true;
        }
    }
    return false;
}

/// How many nodes a DOM makes of what the parser has just met. An attribute's value is one of its own.
int countNodes(const QXmlStreamReader& parser) {
    if (parser.isStartElement()) return 1 + 2 * parser.attributes().size();
    return parser.isEndElement() || parser.isWhitespace() ? 0 : 1;
}

bool isWellFormedWithinLimits(const QString& text) {
    QXmlStreamReader parser(text);
    parser.setNamespaceProcessing(false);
    int depth = 0, nodeCount = 0;
    while (!parser.atEnd()) {
        parser.readNext();
        if (parser.isStartElement()) ++depth;
        if (parser.isEndElement()) --depth;
        nodeCount += countNodes(parser);
        if (depth > maximumDepth || nodeCount > maximumNodeCount) return false;
    }
    return !parser.hasError();
}

} // namespace

std::optional<QString> readDocumentText(QIODevice& device) {
    const auto bytes = readBytes(device);
    if (!bytes) return std::nullopt;
    auto text = decode(*bytes);
    if (!text) return std::nullopt;
    if (hasDeclaration(*text) || hasCrowdedTag(*text) || !isWellFormedWithinLimits(*text)) return std::nullopt;
    return text;
}

} // namespace tesk::measurement::detail
