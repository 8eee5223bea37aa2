#include "qtabstracteditorfactorybase.h"

QtAbstractEditorFactoryBase::QtAbstractEditorFactoryBase(QObject* parent)
    : QObject(parent)
{ }
