#include "scriptreport.h"

#include <QSaveFile>
#include <QXmlStreamWriter>

namespace simulator
{

namespace
{

void writeCase(QXmlStreamWriter &xml, const ScriptReport &report, const QString &seconds)
{
    xml.writeStartElement(QStringLiteral("testcase"));
    xml.writeAttribute(QStringLiteral("classname"), QStringLiteral("headunit"));
    xml.writeAttribute(QStringLiteral("name"), report.script);
    xml.writeAttribute(QStringLiteral("time"), seconds);
    if (!report.failure.isEmpty()) {
        xml.writeStartElement(QStringLiteral("failure"));
        xml.writeAttribute(QStringLiteral("message"), report.failure);
        xml.writeCharacters(report.more.join(QLatin1Char('\n')));
        xml.writeEndElement();
    }
    xml.writeEndElement();
}

} // namespace

bool ScriptReport::write(const QString &file, QString *error) const
{
    const QString secondsText = QString::number(seconds, 'f', 3);
    QSaveFile output(file);
    if (output.open(QIODevice::WriteOnly)) {
        QXmlStreamWriter xml(&output);
        xml.setAutoFormatting(true);
        xml.writeStartDocument();
        xml.writeStartElement(QStringLiteral("testsuite"));
        xml.writeAttribute(QStringLiteral("name"), QStringLiteral("headunit"));
        xml.writeAttribute(QStringLiteral("tests"), QStringLiteral("1"));
        xml.writeAttribute(QStringLiteral("failures"), QString::number(failure.isEmpty() ? 0 : 1));
        xml.writeAttribute(QStringLiteral("errors"), QStringLiteral("0"));
        xml.writeAttribute(QStringLiteral("time"), secondsText);
        writeCase(xml, *this, secondsText);
        xml.writeEndDocument();
    }
    if (!output.commit()) {
        *error = QStringLiteral("The report \"%1\" cannot be written: %2.")
                     .arg(file, output.errorString());
        return false;
    }
    return true;
}

} // namespace simulator
