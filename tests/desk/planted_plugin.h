// A plug-in for pictures that leaves a mark when it is loaded.
#pragma once

#include <QImageIOPlugin>

class PlantedPlugin : public QImageIOPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QImageIOHandlerFactoryInterface_iid FILE "planted_plugin.json")

  public:
    Capabilities capabilities(QIODevice*, const QByteArray&) const override { return {}; }
    QImageIOHandler* create(QIODevice*, const QByteArray&) const override { return nullptr; }
};
