#pragma once

#include <QImage>

// One a page of the guide: does what the page says, draws its picture, and answers a null picture
// if something did not come out as the page says.
QImage ownershipPage();
QImage coordinatesPage();
QImage changePage();
QImage crossingsPage();
QImage detailPage();
QImage nodePage();
QImage inputPage();
QImage viewPage();
QImage startUpPage(); // the last: it ends the library
