#include "service/filedeviceparser.h"

#include "hardware/unit/unit.h"
#include "simlink/simulatedunit.h"

FileDeviceParser::FileDeviceParser() = default;

FileDeviceParser *FileDeviceParser::getInstance()
{
    return simlink::service<FileDeviceParser>([] { return new FileDeviceParser; });
}

QStringList FileDeviceParser::getMountDeviceByType(MediaType type)
{
    return simlink::unit().storage().mountRoots(type);
}

void FileDeviceParser::startParser(const QString &mountRoot)
{
    simlink::unit().journal().write(QStringLiteral("media"), QStringLiteral("scan ") + mountRoot);
}
