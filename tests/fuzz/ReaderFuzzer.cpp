#include <measurement/io/XmlMeasurementReader.h>
#include <measurement/io/XmlMeasurementWriter.h>
#include <measurement/model/Measurement.h>
#include <measurement/model/MeasurementManager.h>

#include <OpenSG/OSGBaseFunctions.h>

#include <QBuffer>

#include <cstdlib>
#include <string>
#include <vector>

using namespace tesk::measurement;

static const bool started = osg::osgInit(0, nullptr);

/// Names and descriptions; the bytes become what is written of them. The scene is empty, so that names survive.
static std::vector<std::string> readAndWrite(QByteArray& bytes) {
    MeasurementManager manager;
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly);
    XmlMeasurementReader().readMeasurements(&device, &manager);
    device.close();
    device.open(QIODevice::WriteOnly | QIODevice::Truncate);
    XmlMeasurementWriter().writeMeasurements(&device, &manager);
    std::vector<std::string> texts;
    for (const Measurement* measurement : manager.getMeasurements())
        texts.insert(texts.end(), {measurement->getName(), measurement->getDescription()});
    return texts;
}

/// Any input is read without harm, and what is written of it can be read and written again without loss.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const std::size_t count = readAndWrite(bytes).size();
    const std::vector<std::string> texts = readAndWrite(bytes);
    if (texts.size() != count || readAndWrite(bytes) != texts) std::abort();
    return 0;
}
