#pragma once

#include <tova/nodes/node.h>
#include <tova/nodes/style/drawstyle.h>
#include <tova/scene/scene.h>
#include <vetra/qt.h>

#include <QApplication>
#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QJsonObject>
#include <QMainWindow>
#include <QMenu>
#include <QRegularExpression>
#include <QStringList>
#include <QUndoStack>

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>
