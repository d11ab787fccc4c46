#include "service/filedeviceparser.h"

#include "hardware/unit/unit.h"
#include "unitlink/simulatedunit.h"

FileDeviceParser::FileDeviceParser() = default;

FileDeviceParser *FileDeviceParser::getInstance()
{
    return unitlink::service<FileDeviceParser>([] { return new FileDeviceParser; });
}

QStringList FileDeviceParser::getMountDeviceByType(MediaType type)
{
    return unitlink::unit().storage().mountRoots(type);
}

void FileDeviceParser::startParser(const QString &mountRoot)
{
    unitlink::unit().journal().write(QStringLiteral("media"), QStringLiteral("scan ") + mountRoot);
}
