#pragma once

#include <QStringView>

namespace saldoro {

/*
 * The demo contract as tables: an invented school, its budget, the companies and people around it
 * and the payments made so far. Amounts are in Italian notation, an empty one is left out; days of
 * invoices are year-month-day, days of mandates as they are printed.
 */
namespace Demo {

// clang-format off

/** Item of the contract sheet; function 17 marks creditors that the form for professionals lists. */
struct SheetItem { QStringView code; int function; QStringView description, text; };
inline constexpr SheetItem Sheet[] = {
    {u"A0001", 1, u"Oggetto dell'appalto",
     u"Adeguamento sismico e ampliamento della scuola primaria «Elena Brentàni»"},
    {u"A0002", 1, u"Stazione appaltante", u"Comune di Borgo Serravecchia"},
    {u"A0003", 1, u"Responsabile unico del procedimento", u"arch. Giosuè Malaspìna"},
    {u"A0004", 1, u"Codice unico di progetto", u"X11B24000120006"},
    {u"A0005", 1, u"Contratto", u"Rep. n. 1482 del 26/08/2024"},
    {u"A0006", 1, u"Consegna dei lavori",
     u"Verbale del 16/09/2024: l'impresa dichiara di non avere riserve"},
    {u"C1701", 17, u"Progettista", u"ing. Ludovica Dell'Ombra"},
    {u"C1702", 17, u"Direttore dei lavori", u"arch. Noemi Sant'Elìa"},
    {u"C1703", 17, u"Coordinatore della sicurezza", u"ing. Agnolo Tricò"},
    {u"C1704", 17, u"Geologo", u"dott. geol. Nicolò Ferraù"},
    {u"C1705", 17, u"Collaudatore statico", u"ing. Benedetto Orsèolo"},
    {u"C1706", 17, u"Collaudatore tecnico-amministrativo", u"ing. Chiara Dall'Àglio"},
    {u"C1707", 17, u"Verificatore del progetto", u"Studio Verifiche Àncora S.r.l."},
    {u"C1708", 17, u"Supporto al responsabile", u"geom. Désirée Lo Càscio"},
    {u"C1709", 17, u"Laboratorio prove", u"Laboratorio Prove L'Incudine S.r.l."},
    {u"C1710", 17, u"Rilievi topografici", u"Rilievi Topografici Sant'Anna S.n.c."},
    {u"C1711", 17, u"Pubblicità legale", u"Tipografia Il Cardo S.a.s."},
    {u"C1712", 17, u"Allacciamento elettrico", u"Società Elettrica Acquachiara S.p.A."},
    {u"C1713", 17, u"Arredi", u"Officina d'Arte Brì & C. S.n.c."},
};

/** The budget of the latest variant: works (A) and sums at the administration's disposal (B). */
struct BudgetItem { QStringView code, description, amount; };
inline constexpr BudgetItem Budget[] = {
    {u"A01", u"Lavori a misura", u"412.500,00"},
    {u"A02", u"Lavori a corpo", u"687.300,00"},
    {u"A03", u"Lavori in economia", u"18.200,00"},
    {u"A04", u"Oneri della sicurezza non soggetti a ribasso", u"42.000,00"},
    {u"B01", u"Imprevisti", u"58.000,00"},
    {u"B02", u"Allacciamenti ai pubblici servizi", u"14.500,00"},
    {u"B03", u"Rilievi, accertamenti e indagini", u"21.300,00"},
    {u"B04", u"Acquisizione di aree ed espropri", u"36.800,00"},
    {u"B05", u"Spostamento di sottoservizi", u"9.400,00"},
    {u"B06", u"Spese tecniche: progettazione", u"92.600,00"},
    {u"B07", u"Spese tecniche: direzione lavori e contabilità", u"71.900,00"},
    {u"B08", u"Spese tecniche: coordinamento della sicurezza", u"38.700,00"},
    {u"B09", u"Spese tecniche: collaudo statico", u"11.200,00"},
    {u"B10", u"Spese tecniche: collaudo tecnico-amministrativo", u"9.800,00"},
    {u"B11", u"Spese tecniche: relazione geologica", u"7.500,00"},
    {u"B12", u"Verifica e validazione del progetto", u"16.400,00"},
    {u"B13", u"Supporto al responsabile unico del procedimento", u"8.900,00"},
    {u"B14", u"Incentivi per funzioni tecniche (2%)", u"23.200,00"},
    {u"B15", u"Pubblicità, gara e commissioni giudicatrici", u"6.300,00"},
    {u"B16", u"Prove di laboratorio e verifiche tecniche", u"12.600,00"},
    {u"B17", u"Contributi previdenziali sulle spese tecniche", u"10.280,00"},
    {u"B18", u"IVA sui lavori (10%)", u"116.000,00"},
    {u"B19", u"IVA sulle spese tecniche e sulle altre voci (22%)", u"68.520,00"},
    {u"B20", u"Arredi e opere per l'abbellimento dell'edificio", u"20.000,00"},
    {u"B21", u"Accantonamento per accordi bonari (3%)", u"34.800,00"},
    {u"B22", u"Contributo di gara e oneri amministrativi", u"1.300,00"},
};

/** Register of companies; the contractor is the first. */
struct Company { int id; QStringView name, kind; };
inline constexpr Company Companies[] = {
    {1, u"A.T.I. Valdenza Costruzioni - Elettra Impianti - D'Aurìa", u"ATI"},
    {2, u"Valdenza Costruzioni S.p.A.", u"Impresa"},
    {3, u"Elettra Impianti S.r.l.", u"Impresa"},
    {4, u"F.lli D'Aurìa S.n.c.", u"Impresa artigiana"},
    {5, u"Società Cooperativa Muratori dell'Alto Sìnello", u"Cooperativa"},
    {6, u"Impresa Nicolò Scàrpari & Figli S.r.l.", u"Impresa"},
    {7, u"Costruzioni Generali L'Aquilone S.p.A.", u"Impresa"},
    {8, u"Consorzio Artigiani dell'Ombrìa", u"Consorzio"},
    {9, u"Edil Forlivéta S.r.l.", u"Impresa"},
    {10, u"Termoidraulica Prà Longo S.n.c.", u"Impresa artigiana"},
};
inline constexpr int Contractor = 1;
inline constexpr int Principals[] = {2, 3, 4};
inline constexpr int Participants[] = {1, 5, 6, 7, 8, 9, 10};

/** A payment. The second line of figures is for professionals alone. */
struct Payment
{
    char16_t kind; int number; QStringView creditor, invoice, day;
    QStringView description;
    QStringView note;
    QStringView taxable, vatRate, vat;
    QStringView fee, contribution, fund, withholdingRate, withheld, other;
};
inline constexpr Payment Payments[] = {
    {u'P', 1, u"ing. Ludovica Dell'Ombra", u"12/2024", u"2024-03-18",
     u"Progettazione esecutiva, primo acconto",
     u"Acconto pari al 60% dell'onorario.\r\nDetermina n. 41 del 04/03/2024.",
     u"40.310,40", u"22", u"8.868,29",
     u"38.000,00", u"1.520,00", u"790,40", u"20", u"7.904,00", u"0,00"},
    {u'P', 2, u"dott. geol. Nicolò Ferraù", u"7", u"2024-04-02",
     u"Relazione geologica e geotecnica",
     u"",
     u"6.152,64", u"22", u"1.353,58",
     u"5.800,00", u"232,00", u"120,64", u"20", u"1.206,40", u"180,00"},
    {u'A', 3, u"Laboratorio Prove L'Incudine S.r.l.", u"204/A", u"2024-04-22",
     u"Prove sui materiali e carotaggi",
     u"Prelievi nei corpi A e B.\r\nCertificati dal n. 311 al n. 326.",
     u"6.450,00", u"22", u"1.419,00",
     u"", u"", u"", u"", u"", u""},
    {u'A', 4, u"Rilievi Topografici Sant'Anna S.n.c.", u"38", u"2024-05-06",
     u"Rilievo plano-altimetrico dell'area",
     u"",
     u"9.870,00", u"22", u"2.171,40",
     u"", u"", u"", u"", u"", u""},
    {u'A', 5, u"A.T.I. Valdenza Costruzioni - Elettra Impianti - D'Aurìa", u"1/PA", u"2024-09-12",
     u"Anticipazione del prezzo",
     u"Polizza fideiussoria acquisita agli atti.\r\nRecupero graduale sugli stati d'avanzamento.",
     u"200.000,00", u"10", u"20.000,00",
     u"", u"", u"", u"", u"", u""},
    {u'P', 6, u"arch. Noemi Sant'Elìa", u"21", u"2024-10-30",
     u"Direzione lavori, primo acconto",
     u"",
     u"17.503,20", u"22", u"3.850,70",
     u"16.500,00", u"660,00", u"343,20", u"20", u"3.432,00", u"0,00"},
    {u'P', 7, u"ing. Agnolo Tricò", u"FE-9", u"2024-11-14",
     u"Sicurezza in fase di esecuzione, primo acconto",
     u"Comprende n. 14 sopralluoghi.",
     u"12.729,60", u"22", u"2.800,51",
     u"12.000,00", u"480,00", u"249,60", u"20", u"2.496,00", u"0,00"},
    {u'A', 8, u"A.T.I. Valdenza Costruzioni - Elettra Impianti - D'Aurìa", u"4/PA", u"2024-12-16",
     u"Stato d'avanzamento lavori n. 1",
     u"Lavori a tutto il 30/11/2024.\r\nRitenuta dello 0,50% già detratta.\r\nDURC regolare.",
     u"148.730,55", u"10", u"14.873,06",
     u"", u"", u"", u"", u"", u""},
    {u'A', 9, u"Società Elettrica Acquachiara S.p.A.", u"2025-0117", u"2025-01-17",
     u"Allacciamento alla rete elettrica",
     u"Preventivo n. 4471; potenza 60 kW.",
     u"8.360,00", u"22", u"1.839,20",
     u"", u"", u"", u"", u"", u""},
    {u'A', 10, u"Azienda Agricola Pian dell'Òlmo", u"1", u"2025-02-03",
     u"Indennità di esproprio, mappale 218",
     u"Cessione volontaria: l'indennità comprende la maggiorazione.\r\nOperazione fuori campo IVA.",
     u"31.250,00", u"0", u"0,00",
     u"", u"", u"", u"", u"", u""},
    {u'P', 11, u"geom. Désirée Lo Càscio", u"3/2025", u"2025-03-10",
     u"Supporto al responsabile del procedimento",
     u"Regime forfettario: senza IVA né ritenuta.",
     u"3.328,00", u"0", u"0,00",
     u"3.200,00", u"128,00", u"0,00", u"0", u"0,00", u"0,00"},
    {u'A', 12, u"Elettra Impianti S.r.l.", u"58/PA", u"2025-04-28",
     u"Stato d'avanzamento n. 2, quota impianti",
     u"Pagamento diretto alla mandante per gli impianti.\r\nFibra e quadro elettrico: € 12.480,00.",
     u"64.380,00", u"10", u"6.438,00",
     u"", u"", u"", u"", u"", u""},
    {u'P', 13, u"ing. Ludovica Dell'Ombra", u"19/2025", u"2025-06-09",
     u"Progettazione esecutiva, saldo",
     u"Altri importi: bolli e copie eliografiche.",
     u"22.701,12", u"22", u"4.994,25",
     u"21.400,00", u"856,00", u"445,12", u"20", u"4.451,20", u"350,00"},
    {u'A', 14, u"Rilievi Topografici Sant'Anna S.n.c.", u"61", u"2025-09-15",
     u"Indagini integrative sulle fondazioni",
     u"Indagini ordinate dopo il ritrovamento della cisterna.\r\n"
     u"Spesa oltre lo stanziamento: variazione da approvare.",
     u"14.350,00", u"22", u"3.157,00",
     u"", u"", u"", u"", u"", u""},
    {u'P', 15, u"arch. Noemi Sant'Elìa", u"5", u"2026-01-19",
     u"Direzione lavori, secondo acconto",
     u"Periodo dal 01/07/2025 al 31/12/2025.\r\n"
     u"Perché sia liquidata occorre il visto dell'ufficio.",
     u"15.116,40", u"22", u"3.325,61",
     u"14.250,00", u"570,00", u"296,40", u"20", u"2.964,00", u"120,50"},
    {u'A', 16, u"F.lli D'Aurìa S.n.c.", u"11/PA", u"2026-02-26",
     u"Lavori in economia, lista settimanale n. 3",
     u"Lista vistata dal direttore dei lavori.\r\nMandato da emettere.",
     u"9.640,40", u"10", u"964,04",
     u"", u"", u"", u"", u"", u""},
};

/** What of a payment goes to which cost item. */
struct Allocation { int payment; QStringView code, amount; };
inline constexpr Allocation Allocations[] = {
    {1, u"B06", u"38.000,00"},
    {1, u"B17", u"2.310,40"},
    {1, u"B19", u"8.868,29"},
    {2, u"B11", u"5.980,00"},
    {2, u"B17", u"352,64"},
    {2, u"B19", u"1.353,58"},
    {3, u"B16", u"6.450,00"},
    {3, u"B19", u"1.419,00"},
    {4, u"B03", u"9.870,00"},
    {4, u"B19", u"2.171,40"},
    {5, u"A01", u"80.000,00"},
    {5, u"A02", u"120.000,00"},
    {5, u"B18", u"20.000,00"},
    {6, u"B07", u"16.500,00"},
    {6, u"B17", u"1.003,20"},
    {6, u"B19", u"3.850,70"},
    {7, u"B08", u"12.000,00"},
    {7, u"B17", u"729,60"},
    {7, u"B19", u"2.800,51"},
    {8, u"A01", u"60.210,30"},
    {8, u"A02", u"80.520,25"},
    {8, u"A04", u"8.000,00"},
    {8, u"B18", u"14.873,06"},
    {9, u"B02", u"8.360,00"},
    {9, u"B19", u"1.839,20"},
    {10, u"B04", u"31.250,00"},
    {11, u"B13", u"3.200,00"},
    {11, u"B17", u"128,00"},
    {12, u"A02", u"58.380,00"},
    {12, u"A04", u"6.000,00"},
    {12, u"B18", u"6.438,00"},
    {13, u"B06", u"21.750,00"},
    {13, u"B17", u"1.301,12"},
    {13, u"B19", u"4.994,25"},
    {14, u"B03", u"14.350,00"},
    {14, u"B19", u"3.157,00"},
    {15, u"B07", u"14.370,50"},
    {15, u"B17", u"866,40"},
    {15, u"B19", u"3.325,61"},
    {16, u"A03", u"9.640,40"},
    {16, u"B18", u"964,04"},
};

/** The mandates issued so far; the last payments still wait for theirs. */
struct Mandate { int payment; QStringView number, day; };
inline constexpr Mandate Mandates[] = {
    {1, u"57", u"09/04/2024"},
    {2, u"63", u"23/04/2024"},
    {3, u"80", u"21/05/2024"},
    {4, u"84", u"04/06/2024"},
    {5, u"151", u"08/10/2024"},
    {6, u"179", u"26/11/2024"},
    {7, u"186", u"10/12/2024"},
    {8, u"12", u"21/01/2025"},
    {9, u"29", u"11/02/2025"},
    {10, u"41", u"04/03/2025"},
    {11, u"66", u"01/04/2025"},
    {12, u"97", u"27/05/2025"},
    {13, u"118", u"08/07/2025"},
    {14, u"163", u"14/10/2025"},
};

// clang-format on

} // namespace Demo

} // namespace saldoro
