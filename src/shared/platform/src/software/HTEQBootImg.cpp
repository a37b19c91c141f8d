#include "platform/HTEQBootImg.h"

#include "json/JsonKeys.h"

namespace {

using K = json::Keys<HTEQBootImg>;
constexpr json::Key<HTEQBootImg> kKeys[] = {
    K::text<&HTEQBootImg::getName>("name"),
    K::text<&HTEQBootImg::getType>("type"),
    K::text<&HTEQBootImg::getBif>("bif"),
    K::text<&HTEQBootImg::getImgData>("data"),
    K::text<&HTEQBootImg::getRootFS>("rootFileSystem"),
    K::text<&HTEQBootImg::getBootMode>("bootMode"),
    K::text<&HTEQBootImg::getMountPath>("mountPath"),
    K::text<&HTEQBootImg::getReadMe>("readMe"),
    K::text<&HTEQBootImg::getQemuArguments>("qemuArgs"),
    K::text<&HTEQBootImg::getQemuBoot>("qemuBoot"),
    K::text<&HTEQBootImg::getQemuDevTree>("qemuDevTree"),
    K::text<&HTEQBootImg::getHwBootBin>("hwBootBin"),
};

}  // namespace

void HTEQBootImg::toJSON(teq_platform::JSONObjectWriter& writer) const { json::writeKeys(writer, kKeys, *this); }
