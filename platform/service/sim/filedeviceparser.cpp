#include "service/filedeviceparser.h"

#include "hardware/unit/unit.h"
#include "unitlink/calls.h"
#include "unitlink/simulatedunit.h"

FileDeviceParser::FileDeviceParser() = default;

FileDeviceParser *FileDeviceParser::getInstance()
{
    return unitlink::service<FileDeviceParser>([] { return new FileDeviceParser; });
}

QStringList FileDeviceParser::getMountDeviceByType(MediaType type)
{
    const auto ask = [type] { return unitlink::unit().storage().mountRoots(type); };
    return unitlink::answer("FileDeviceParser::getMountDeviceByType", QStringList(), ask,
                            int(type));
}

void FileDeviceParser::startParser(const QString &mountRoot)
{
    if (!unitlink::fails("FileDeviceParser::startParser")) {
        unitlink::unit().journal().write(QStringLiteral("media"),
                                         QStringLiteral("scan ") + mountRoot);
    }
}
