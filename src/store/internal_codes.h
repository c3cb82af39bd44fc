#pragma once

#include <QStringView>

#include <array>

namespace saldoro {

/**
 * The program's own codes of what it keeps in the contract sheet. The suite's code map gives the
 * item code of each, and a description.
 */
namespace InternalCode {
/** The item of the contractor, with its name and its link to the register of companies. */
inline constexpr QStringView Contractor = u"DA1";
/** What the items of the mandate notes begin with, one for each payment. */
inline constexpr QStringView MandateNotes = u"P97";
/** The documents; a kind's payments except the last one are its earlier ones. */
inline constexpr QStringView OverviewDocument = u"QDP";
inline constexpr QStringView EarlierCompanyPayments = u"P98";
inline constexpr QStringView LastCompanyPayment = u"P99";
inline constexpr QStringView EarlierProfessionalPayments = u"P98P";
inline constexpr QStringView LastProfessionalPayment = u"P99P";
/** The totals of all payments of a kind, and of both kinds. */
inline constexpr QStringView CompanyTotal = u"QS1A";
inline constexpr QStringView ProfessionalTotal = u"QS1P";
inline constexpr QStringView Total = u"QS1T";
} // namespace InternalCode

/** What the item code of an internal code is used as. */
enum class CodeUse
{
    Search, ///< key of an item that is looked for
    Note,   ///< beginning of the keys of the mandate notes, also a pattern
    File,   ///< key of a document's register entry and the document's file name
    Total   ///< key of an amount
};

struct UsedCode
{
    QStringView code;
    CodeUse use;
};

/** All internal codes that the program uses. */
inline constexpr std::array<UsedCode, 10> UsedCodes{
    {{InternalCode::Contractor, CodeUse::Search},
     {InternalCode::MandateNotes, CodeUse::Note},
     {InternalCode::OverviewDocument, CodeUse::File},
     {InternalCode::EarlierCompanyPayments, CodeUse::File},
     {InternalCode::LastCompanyPayment, CodeUse::File},
     {InternalCode::EarlierProfessionalPayments, CodeUse::File},
     {InternalCode::LastProfessionalPayment, CodeUse::File},
     {InternalCode::CompanyTotal, CodeUse::Total},
     {InternalCode::ProfessionalTotal, CodeUse::Total},
     {InternalCode::Total, CodeUse::Total}}};

} // namespace saldoro
