#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QString>

#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <vector>
