#include <measurement/io/XmlMeasurementReader.h>
#include <measurement/io/XmlMeasurementWriter.h>
#include <measurement/model/MeasurementManager.h>
#include <measurement/model/PointPointMeasurement.h>
#include <measurement/section/GapMeasurement.h>
#include <measurement/visualisation/MeasurementVisualisation.h>
#include <platform/tkScenegraph.h>

#include <support/Random.h>
#include <support/Scenes.h>

#include <gtest/gtest.h>

#include <QBuffer>
#include <QDir>
#include <QLocale>
#include <QXmlStreamReader>

namespace tesk::measurement {

/// Elements, attributes in the order of their names, and text, without its white space.
static std::string plainText(const QByteArray& document) {
    QStringList tokens;
    for (QXmlStreamReader reader(document); !reader.atEnd(); reader.readNext()) {
        tokens << reader.tokenString() + reader.name() + reader.text().trimmed();
        const int attributes = tokens.size();
        for (const auto& attribute : reader.attributes()) tokens << attribute.name() + "=" + attribute.value();
        std::sort(tokens.begin() + attributes, tokens.end());
    }
    return tokens.join("\n").toStdString();
}

static QByteArray contentOf(const QString& name) {
    QFile file(TESK_IO_TEST_DATA + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

/// Two quads and a wire; logs name and description at every update since the last measurement was added.
class XmlMeasurement : public testing::Test, public MeasurementVisualisation {
protected:
    XmlMeasurement() {
        tkScenegraph::getRoot()->addChild(scene);
        manager.addVisualisation(this);
        QLocale::setDefault(QLocale::German);
    }
    ~XmlMeasurement() override { tkScenegraph::getRoot()->subChild(scene.get()); }

    void setVisible(bool) override {}
    bool isVisible() const override { return true; }
    osg::NodePtr getVisualisation() override { return osg::NullFC; }
    void addMeasurement(const Measurement*) override { log.clear(); }
    void removeMeasurement(const Measurement*) override {}
    void updateMeasurement(const Measurement* m) override { log += m->getName() + "|" + m->getDescription() + "; "; }

    /// Replaces the measurements; gives their names.
    std::string read(QIODevice& device) {
        manager.removeAllMeasurements();
        device.open(QIODevice::ReadOnly);
        XmlMeasurementReader().readMeasurements(&device, &manager);
        std::string names;
        for (const Measurement* measurement : manager.getMeasurements()) names += measurement->getName() + ";";
        return names;
    }
    std::string read(QByteArray bytes) {
        QBuffer device(&bytes);
        return read(device);
    }
    QByteArray write() const {
        QBuffer device;
        device.open(QIODevice::WriteOnly);
        XmlMeasurementWriter().writeMeasurements(&device, &manager);
        return device.data();
    }
    template <class Kind> Kind& first() const { return dynamic_cast<Kind&>(*manager.getMeasurements().front()); }

    const test::SceneNode low = test::named(test::quad(0.0f), "low"), high = test::named(test::quad(3.0f), "high");
    const test::SceneNode wire = test::named(test::lines({{{0, 0.5f, 1}, {1, 0.5f, 1}}}), "wire <1>");
    const test::SceneNode scene = test::group({low, test::group({high, wire})});
    std::string log;
    MeasurementManager manager;
};

TEST_F(XmlMeasurement, IsWrittenAsTheFormatSays) {
    EXPECT_EQ(write(), "<!DOCTYPE measurements>\n<Measurements/>\n");
    for (const char* name : {"all-kinds.xml", "latin-1.xml", "utf-16.xml"}) {
        const QByteArray expected = contentOf(name);
        read(expected);
        EXPECT_EQ(plainText(write()), plainText(expected));
    }
}

TEST_F(XmlMeasurement, KeepsItsInputsAndAllTextThatXmlCanCarry) {
    const char* const kinds[] = {"PointPoint", "Circle", "PointObject", "ObjectObject", "LineObject", "Gap"};
    const char* const nodes[] = {"low", "high", "wire &lt;1>", "lost", ""};
    const char* const pieces[] = {"\"", "<", "&",    "]]>",    "\n",     "\r",
                                  " ",  "a", "&lt;", "\ufeff", "\u00a0", "\U0001f600"};
    const std::string forbidden("\x01\x1f\0\ufffe\uffff", 9);
    test::Random random(32);
    const auto node = [&] { return nodes[random.below(5)]; };
    const auto text = [&] {
        std::string result;
        for (std::uint32_t length = random.below(6); length > 0; --length) result += pieces[random.below(12)];
        return result;
    };
    for (int run = 0; run < 500; ++run) {
        const std::uint32_t kind = random.below(6);
        const QString document =
            QString("<m><%1Measurement node1='%2' node2='%3' node3='%2' line='%3' node='%2'><Point1 x='%4'/>"
                    "<Point2 y='%4'/><LinePoint z='%4'/></%1Measurement></m>");
        read(document.arg(kinds[kind], node(), node()).arg(random.below(33) / 8.0 - 2.0).toUtf8());
        auto& measurement = first<AbstractMeasurement>();
        // Others are named after their nodes again, once both are there.
        const bool keepsName = kind < 3 || measurement.getName().empty();
        const std::string name = keepsName ? text() : measurement.getName(), description = text();
        measurement.setName(forbidden + name);
        measurement.setDescription(description + forbidden);
        const QByteArray written = write();
        EXPECT_EQ(read(written), name + ";");
        EXPECT_EQ(first<Measurement>().getDescription(), description);
        EXPECT_EQ(plainText(write()), plainText(written));
    }
}

TEST_F(XmlMeasurement, IsSetUpInTheOrderOfItsKind) {
    // The updates, then a digit for the length of each node path.
    const struct {
        const char *tag, *nodes, *log;
    } rows[] = {
        {"ObjectObject", "node1='low' node2='high'", "n|; n|d; low  to  high|d; 23"},
        {"PointPoint", "node1='low' node2='high'", "|; low  to  high|; n|; n|d; 0"},
        {"Circle", "node1='low' node2='high' node3='low'", "|; low  to  high|; low  to  high  to  low|; n|; n|d; 0"},
        {"PointObject", "node1='low' node2='high'", "|; low  to  high|; n|; n|d; 3"},
        {"LineObject", "line='high' node='low'", "n|; n|d; high  to  low|d; 32"},
        {"LineObject", "line='high' node1='low'", "n|; n|d; 30"},
        {"Gap", "node1='low' node2='high'", "n|; n|d; low  to  high|d; 23"},
        {"Gap", "node2='high'", "n|; n|d; n|d; 3"},
    };
    for (const auto& row : rows) {
        const QByteArray tag = QByteArray(row.tag) + "Measurement";
        read("<m><" + tag + " name='n' " + row.nodes + "><Description>d</Description></" + tag + "></m>");
        const auto& measurement = first<AbstractMeasurement>();
        const auto paths = 10 * measurement.getNodePath1().size() + measurement.getNodePath2().size();
        EXPECT_EQ(log + std::to_string(paths), row.log) << row.tag;
    }
}

TEST_F(XmlMeasurement, IsReadWithWhatIsMissingOrUnknown) {
    read("<any><Gapmeasurement/>text<PointPointMeasurement><!-- c --><Description>a</Description><Point1 x='7'/>"
         "<Point1 x=' 1.5 ' y='1,5'/><Point2 z='-2e1'/><Point2x x='9'/><Description> <b>b</b></Description>"
         "</PointPointMeasurement><m><GapMeasurement/></m></any>");
    EXPECT_EQ(first<Measurement>().getName(), "b");
    EXPECT_EQ(manager.getMeasurements().size(), 1u);
    EXPECT_EQ(first<PointPointMeasurement>().getPoint1(), osg::Pnt3f(1.5f, 0, 0));
    EXPECT_EQ(first<PointPointMeasurement>().getPoint2(), osg::Pnt3f(0, 0, -20));
    EXPECT_EQ(read("<m><GapMeasurement name=''><Description>d</Description></GapMeasurement></m>"), ";");
    EXPECT_EQ(first<GapMeasurement>().getSampleDistance(), 10.0f);
    read("<m><GapMeasurement><SampleDistance/></GapMeasurement></m>");
    EXPECT_EQ(first<GapMeasurement>().getSampleDistance(), 0.0f);
}

TEST_F(XmlMeasurement, IsNotReadFromWhatIsNotWellFormed) {
    for (const QString& name : QDir(TESK_IO_TEST_DATA).entryList({"bad-*"}))
        EXPECT_EQ(read(contentOf(name)), "") << name.toStdString();
    const QByteArray whole = contentOf("all-kinds.xml").trimmed();
    for (int length = 0; length < whole.size(); ++length) EXPECT_EQ(read(whole.left(length)), "") << length;
}

TEST_F(XmlMeasurement, IsNotReadFromWhatIsTooMuch) {
    const auto readWith = [&](QByteArray start, int count, QByteArray end = "", QByteArray head = "") {
        return read(head + "<m><GapMeasurement name='n'/>" + start.repeated(count) + end.repeated(count) + "</m>");
    };
    EXPECT_EQ(readWith("<a>", 63, "</a>"), "n;");
    for (const int depth : {64, 100000}) EXPECT_EQ(readWith("<a>", depth, "</a>"), "") << depth;
    // Less than the limit of size, more than that of nodes.
    EXPECT_EQ(readWith("x<a/>", 8500000), "");
    // No declaration, though Qt's DOM would take it for one and make the text tags.
    EXPECT_EQ(readWith("+ADw-a+AD4-", 100000, "", "<?xml-style encoding='UTF-7'?>"), "n;");
    QByteArray attributes;
    for (int i = 0; i < 64; ++i) attributes += " a" + QByteArray::number(i) + "='>'";
    EXPECT_EQ(readWith("<a" + attributes + "/>", 1), "n;");
    EXPECT_EQ(readWith("<a" + attributes + " a=''/>", 1), "");
    EXPECT_EQ(readWith("<a b='" + QByteArray(10000000, 'x') + "'/>", 1), "n;");
    const QByteArray model = QByteArray(100000, '(') + "a" + QByteArray(100000, ')');
    EXPECT_EQ(readWith("", 0, "", "<!DOCTYPE m [<!ELEMENT m " + model + ">]>"), "");
    QFile endless("/dev/zero");
    EXPECT_EQ(read(endless), "");
}

} // namespace tesk::measurement
