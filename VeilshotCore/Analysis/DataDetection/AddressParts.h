#pragma once

#include <QString>
#include <QStringList>

/// The parts that postal addresses of several countries share, as expressions for case-sensitive matching.
/// Repetitions are bounded or possessive throughout: no text makes the matching explode.
namespace Veilshot::AddressParts {

QString anyOf(const QStringList& alternatives);
QString optional(const QString& part);

/// A capitalized word.
QString name();
/// One to four of them, with the small words between: "Stoke on Trent".
QString city();
/// Where a name or a number may begin.
QString beforeName();
QString beforeNumber();
/// In front of its street; not the end of a phone number.
QString houseNumber();
QString compass();

/// "Apt 4B", "Flat 2".
QString unit();
/// "2. tv", "st. th", "1. sal".
QString floor();
/// Only a floor that says so or has a side, which hardly anything else looks like.
QString floorWithSide();

QString country();
QString state();
QString zip();
/// The strict form with its blank.
QString britishPostcode();
QString irishPostcode();
QString australianPostcode();
QString canadianPostcode();
QString continentalPostcode();
QString swedishPostcode();
/// "00-681", "1200-109".
QString hyphenatedPostcode();

} // namespace Veilshot::AddressParts
