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
    /** Item code and description in a code map that is made where there is no suite. */
    QStringView standardItem;
    QStringView standardDescription;
};

/** All internal codes that the program uses. */
inline constexpr std::array<UsedCode, 10> UsedCodes{
    {{InternalCode::Contractor, CodeUse::Search, u"D0101", u"Impresa appaltatrice"},
     {InternalCode::MandateNotes, CodeUse::Note, u"M0097", u"Mandati di pagamento"},
     {InternalCode::OverviewDocument, CodeUse::File, u"Q0100",
      u"Prospetto delle disponibilità per voce di spesa"},
     {InternalCode::EarlierCompanyPayments, CodeUse::File, u"Q0198",
      u"Pagamenti precedenti alle imprese"},
     {InternalCode::LastCompanyPayment, CodeUse::File, u"Q0199", u"Ultimo pagamento alle imprese"},
     {InternalCode::EarlierProfessionalPayments, CodeUse::File, u"Q0298",
      u"Pagamenti precedenti ai professionisti"},
     {InternalCode::LastProfessionalPayment, CodeUse::File, u"Q0299",
      u"Ultimo pagamento ai professionisti"},
     {InternalCode::CompanyTotal, CodeUse::Total, u"S0101", u"Totale liquidato alle imprese"},
     {InternalCode::ProfessionalTotal, CodeUse::Total, u"S0102",
      u"Totale liquidato ai professionisti"},
     {InternalCode::Total, CodeUse::Total, u"S0103", u"Totale liquidato"}}};

} // namespace saldoro
