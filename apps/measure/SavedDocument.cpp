#include <apps/measure/SavedDocument.h>

#include <apps/measure/Failure.h>
#include <apps/measure/FileReplacement.h>
#include <apps/measure/SavedDocumentParser.h>

#include <measurement/io/XmlMeasurementReader.h>
#include <measurement/io/XmlMeasurementWriter.h>
#include <measurement/model/MeasurementManager.h>

#include <QBuffer>
#include <QXmlStreamReader>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

namespace tesk::measure {

namespace {

/// The library reads no larger ones.
constexpr std::size_t largestDocument = std::size_t{1} << 28;

std::string readFile(const std::string& path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rbe"), &std::fclose);
    if (!file) throw Failure(std::generic_category().message(errno));
    std::string text;
    std::vector<char> piece(std::size_t{1} << 16);
    for (std::size_t count = 1; count > 0;) {
        count = std::fread(piece.data(), 1, piece.size(), file.get());
        text.append(piece.data(), count);
        if (text.size() > largestDocument) throw Failure("larger than 256 MB");
    }
    if (std::ferror(file.get()) != 0) throw Failure(std::generic_category().message(errno));
    return text;
}

/// Library and parser are to see the same text, which leaves one encoding.
QString decode(const std::string& text) {
    const QString decoded = QString::fromUtf8(text.data(), static_cast<int>(text.size()));
    QXmlStreamReader head(decoded.left(1024));
    head.readNext();
    const QString encoding = head.documentEncoding().toString().toUpper();
    if (!encoding.isEmpty() && encoding != "UTF-8") throw Failure("its encoding is " + encoding.toStdString());
    return decoded;
}

void readWithLibrary(const std::string& text, measurement::MeasurementManager& manager) {
    QByteArray bytes = QByteArray::fromRawData(text.data(), static_cast<int>(text.size()));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    measurement::XmlMeasurementReader().readMeasurements(&buffer, &manager);
}

/// The library looks a document over before anything parses it; without nodes it has nothing to measure.
std::size_t countReadable(const std::string& text) {
    measurement::MeasurementManager manager;
    readWithLibrary(text, manager);
    if (manager.getMeasurements().empty()) {
        throw Failure("no measurements in it: not well-formed XML, too large, too deep, or none of a known kind");
    }
    return manager.getMeasurements().size();
}

} // namespace

SavedDocument::SavedDocument(const std::string& documentPath) : path(documentPath) {
    try {
        text = readFile(path);
        const QString decoded = decode(text);
        const std::size_t count = countReadable(text);
        measurements = parseSavedDocument(decoded, notes);
        for (std::string& note : notes) note = path + ": " + note;
        if (measurements.size() != count) throw Failure("not UTF-8");
    } catch (const Failure& failure) {
        throw Failure(path + ": " + failure.what());
    }
}

void SavedDocument::load(measurement::MeasurementManager& manager) const { readWithLibrary(text, manager); }

void saveDocument(const std::string& path, const measurement::MeasurementManager& manager) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    measurement::XmlMeasurementWriter().writeMeasurements(&buffer, &manager);
    const QByteArray& bytes = buffer.data();
    FileReplacement file(path);
    file.write({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    file.commit();
}

} // namespace tesk::measure
