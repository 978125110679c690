#include "calc/core/Constants.h"

#include <vector>

#include "shell/core/Primitives.h"

namespace Constants {

namespace {

// The rows as they stand, misspellings and repeated entries included: the
// table is shown to the user exactly like this. Values have six significant
// digits; units are SI unless the row says otherwise. Symbols written with
// Greek letters keep their 8-bit stand-ins ("îo" for the permittivity of
// vacuum, "æB" for the Bohr magneton, and so on).
const std::array<std::string_view, kConstantCount> kRows = {
    // Angles, astronomy, gravity, time
    "1<+>°<+>degree (angle)<+>1.74533E-02<+>rad",
    "2<+>'<+>minute (angle)<+>2.90888E-04<+>rad",
    "3<+>\"<+>second (angle)<+>4.84814E-06<+>rad",
    "4<+>AU<+>astronomical unit<+>1.49598E+11<+>m",
    "5<+>G (g)<+>accelaration of fall<+>9.80665E+00<+>m/s²",
    "6<+>grade<+>grade (angle)<+>1.57080E-02<+>rad",
    "7<+>kn<+>knot<+>5.14444E-01<+>m/s",
    "8<+>l.y.<+>light year<+>9.46073E+15<+>m",
    "9<+>n.mile<+>nautical mile<+>1.85200E+03<+>m",
    "10<+>pc<+>parsec<+>3.08568E+16<+>m",
    "11<+>year<+>year (tropical)<+>3.15569E+07<+>s",
    // Lengths, areas, volumes
    "12<+>acre<+>acre<+>4.04686E+03<+>m²",
    "13<+>barrel<+>barrel (United Kingdom)<+>1.63659E-01<+>m³",
    "14<+>bblUS<+>barrel (US petroleum)<+>1.58987E-01<+>m³",
    "15<+>bushel UK<+>bushel (United Kingdom)<+>3.63687E-02<+>m³",
    "16<+>bushel US(bu)<+>bushel (United States)<+>3.52391E-02<+>m³",
    "17<+>chain<+>chain<+>2.01168E+01<+>m",
    "18<+>cu<+>cup (United States)<+>2.36588E-04<+>m³",
    "19<+>dry ptUS<+>dry pint (United States)<+>5.50610E-04<+>m³",
    "20<+>fath<+>fathom<+>1.82880E+00<+>m",
    "21<+>fbm<+>board foot<+>2.35974E-03<+>m³",
    "22<+>flozUK<+>fluid ounce (United Kingdom)<+>2.84131E-05<+>m³",
    "23<+>flozUS<+>fluid ounce (United States)<+>2.95735E-05<+>m³",
    "24<+>ft<+>fathom<+>1.82880E+00<+>m",
    "25<+>ftUS<+>foot (US survey)<+>3.04801E-01<+>m",
    "26<+>galUK<+>gallon (United Kingdom)<+>4.54609E-03<+>m³",
    "27<+>galUS<+>gallon (United Kingdom)<+>3.78541E-03<+>m³",
    "28<+>in<+>inch<+>2.54000E-02<+>m",
    "29<+>mil<+>mil<+>2.54000E-05<+>m",
    "30<+>mile<+>mile<+>1.60934E+03<+>m",
    "31<+>miUS<+>mile (US survey)<+>1.60935E+03<+>m",
    "32<+>mph<+>mile per hour<+>4.47040E-01<+>m/s",
    "33<+>pk<+>peck (United States)<+>8.80977E-03<+>m³",
    "34<+>ptUK<+>pint (United Kingdom)<+>5.68261E-04<+>m³",
    "35<+>ptUS<+>liquid pint (United States)<+>4.73176E-04<+>m³",
    "36<+>tbsp<+>tablespoon<+>1.47868E-05<+>m³",
    "37<+>tsp<+>teaspoon<+>4.92892E-06<+>m³",
    "38<+>yd<+>yard<+>9.14400E-01<+>m",
    "39<+>ydUS<+>yard (US survey)<+>9.14402E-01<+>m",
    // Other metric units
    "40<+>at<+>technical atmosphere<+>9.80665E+04<+>Pa",
    "41<+>atm<+>standard atmosphere<+>1.01325E+05<+>Pa",
    "42<+>ct<+>carat (metric)<+>2.00000E-04<+>kg",
    "43<+>D<+>debye<+>3.33564E-30<+>C.m",
    "44<+>G<+>gauss<+>1.00000E-04<+>T",
    "45<+>kgF<+>kilogram-force<+>9.80665E+00<+>N",
    "46<+>mH2O<+>metre of water<+>9.80665E+03<+>Pa",
    "47<+>mmHg<+>millimetre of mercury<+>1.33322E+02<+>Pa",
    "48<+>PS<+>metric horsepower<+>7.35499E+02<+>W",
    "49<+>Torr<+>torr<+>1.33322E+02<+>Pa",
    // Imperial and US units of mass, force, pressure, energy, power
    "50<+>cwt (UK)<+>hundredweight (United Kingdom)<+>5.08023E+01<+>kg",
    "51<+>cwt (US)<+>hundredweight (United States)<+>4.53592E+01<+>kg",
    "52<+>ft.lbf<+>foot pound-force<+>1.35582E+00<+>J",
    "53<+>ftH2O<+>foot of water<+>2.98907E+03<+>Pa",
    "54<+>gr<+>grain<+>6.47989E-05<+>kg",
    "55<+>HP<+>horsepower<+>7.45700E+02<+>W",
    "56<+>inH2O<+>inch of water<+>2.49089E+02<+>Pa",
    "57<+>inHg<+>inch of mercury<+>3.38639E+03<+>Pa",
    "58<+>lb<+>pound (avoirdupois)<+>4.53592E-01<+>kg",
    "59<+>lbf<+>pound-force<+>4.44822E+00<+>N",
    "60<+>lbt<+>pound (troy)<+>3.73242E-01<+>kg",
    "61<+>oz<+>ounce (avoirdupois)<+>2.83495E-02<+>kg",
    "62<+>ozt<+>ounce (troy)<+>3.11035E-02<+>kg",
    "63<+>pdl<+>poundal<+>1.38255E-01<+>N",
    "64<+>psi<+>pound-force per square inch<+>6.89476E+03<+>Pa",
    "65<+>slug<+>slug<+>1.45939E+01<+>kg",
    "66<+>ton (UK)<+>long ton (United Kingdom)<+>1.01605E+03<+>kg",
    "67<+>ton (US)<+>short ton (United States)<+>9.07185E+02<+>kg",
    // Temperature and heat
    "68<+>0øC<+>zero Celcius<+>2.73150E+02<+>K",
    "69<+>Cal15<+>calorie (15 °C)<+>4.18550E+00<+>J",
    "70<+>CalIT<+>calorie (International Table)<+>4.18680E+00<+>J",
    "71<+>Calth<+>calorie (thermochemical)<+>4.18400E+00<+>J",
    "72<+>°F<+>degree Fahrenheit<+>3.84810E+04<+>K(°C)",
    "73<+>0°F<+>zero Fahrenheit<+>-1.77778E+01<+>°C",
    "74<+>Calth<+>British thermal unit<+>1.05506E+03<+>J",
    "75<+>BTU/(lb.R)<+>BTU per pound degree Rankine<+>4.18680E+03<+>J/(kg.K)",
    "76<+>BTU/h<+>BTU per hour<+>2.93071E-01<+>W",
    "77<+>BTU/lb<+>BTU per pound<+>2.32600E+03<+>J/kg",
    "78<+>therm<+>therm<+>1.05506E+08<+>J",
    // Electricity and magnetism (esu units), radiation
    "79<+>îo<+>permittivity of vacuum<+>8.85419E-12<+>F/m",
    "80<+>æo<+>permeability of vacuum<+>1.25664E-06<+>H/m",
    "81<+>Cs<+>statfarad (esu of capacitance)<+>1.11265E-12<+>F",
    "82<+>Ds<+>esu of electric displacement<+>2.65442E-07<+>C/m²",
    "83<+>Es<+>statvolt per centimetre (esu of field)<+>2.99792E+04<+>V/m",
    "84<+>Is<+>statampere (esu of current)<+>3.33564E-10<+>A",
    "85<+>Oe<+>oersted<+>7.95775E+01<+>A/m",
    "86<+>Ps<+>esu of polarization<+>3.33564E-06<+>C/m²",
    "87<+>Qs<+>statcoulomb (esu of charge)<+>3.33564E-10<+>C",
    "88<+>Vs<+>statvolt (esu of potential)<+>2.99792E+02<+>V",
    "89<+>å<+>Stefan-Boltzmann constant<+>5.67037E-08<+>W/(m².K^4)",
    // Light, levels and fundamental constants
    "90<+>C<+>speed of light<+>2.99792E+08<+>m/s",
    "91<+>c1<+>first radiation constant<+>3.74177E-16<+>W.m²",
    "92<+>c2<+>second radiation constant<+>1.43878E-02<+>m.K",
    "93<+>lam<+>lambert<+>3.18310E+03<+>cd/m²",
    "94<+>flam<+>foot-lambert<+>3.42626E+00<+>cd/m²",
    "95<+>dB<+>decibel<+>1.15129E-01<+>Np",
    "96<+>Np<+>neper<+>8.68589E+00<+>dB",
    "97<+>e<+>elementary charge<+>1.60218E-19<+>C",
    "98<+>F<+>Faraday constant<+>9.64853E+04<+>C/mol",
    "99<+>k<+>Boltzmann constant<+>1.38065E-23<+>J/K",
    "100<+>NA<+>Avogadro constant<+>6.02214E+23<+>1/mol",
    "101<+>R<+>molar gas constant<+>8.31446E+00<+>J/(mol.K)",
    "102<+>Vm<+>molar volume of ideal gas (273.15 K, 101.325 kPa)<+>2.24140E-02<+>m³/mol",
    "103<+>à<+>fine-structure constant<+>7.29735E-03<+>",
    "104<+>p<+>proton-electron mass ratio<+>1.83615E+03<+>",
    "105<+>à<+>inverse fine-structure constant<+>1.37036E+02<+>",
    "106<+>çp<+>proton gyromagnetic ratio<+>2.67522E+08<+>1/(s.T)",
    "107<+>çp<+>shielded proton gyromagnetic ratio<+>2.67515E+08<+>1/(s.T)",
    "108<+>âcn<+>neutron Compton wavelength<+>1.31959E-15<+>m",
    "109<+>âcp<+>proton Compton wavelength<+>1.32141E-15<+>m",
    "110<+>æB<+>Bohr magneton<+>9.27401E-24<+>J/T",
    "111<+>æe<+>electron magnetic moment<+>9.28476E-24<+>J/T",
    "112<+>æN<+>nuclear magneton<+>5.05078E-27<+>J/T",
    "113<+>æp<+>proton magnetic moment<+>1.41061E-26<+>J/T",
    "114<+>ao<+>Bohr radius<+>5.29177E-11<+>m",
    "115<+>Eh<+>Hartree energy<+>4.35981E-18<+>J",
    "116<+>eV<+>electron volt<+>1.60218E-19<+>J",
    "117<+>h<+>Plank constant<+>6.62618E-34<+>J.s",
    "118<+>h bar<+>Planck constant over 2 pi<+>1.05457E-34<+>J.s",
    "119<+>m(1H)<+>hydrogen atom mass<+>1.67353E-27<+>kg",
    "120<+>me<+>electron mass<+>9.10938E-31<+>kg",
    "121<+>mn<+>neutron mass<+>1.67493E-27<+>kg",
    "122<+>mp<+>proton mass<+>1.67262E-27<+>kg",
    "123<+>Rì<+>Rydberg constant<+>1.09737E+07<+>1/m",
    "124<+>re<+>Electron radius<+>2.81794E-15<+>m",
    "125<+>u<+>Atomic mass unit<+>2.81794E-15<+>m",
    "126<+>Ci<+>curie<+>3.70000E+10<+>Bq",
    "127<+>R<+>roentgen<+>2.58000E-04<+>C/kg",
    "128<+>íO<+>magnetic flux quantum<+>2.06783E-15<+>Wb",
};

}  // namespace

const std::array<std::string_view, kConstantCount>& Constant_Rows() { return kRows; }

ConstantRecord Parse_Constant(std::string_view row) {
    std::vector<std::string_view> fields;
    size_t start = 0;
    for (;;) {
        const size_t at = row.find(kFieldSeparator, start);
        if (at == std::string_view::npos) {
            fields.push_back(row.substr(start));
            break;
        }
        fields.push_back(row.substr(start, at - start));
        start = at + kFieldSeparator.size();
    }
    fields.resize(5);  // missing fields read as empty

    ConstantRecord rec;
    int32_t number = 0;
    if (prim::ToInt32(prim::Val(fields[0]), number)) rec.Number = number;
    rec.Symbol = prim::Trim(fields[1]);
    rec.Description = prim::Trim(fields[2]);
    rec.Value = prim::Val(fields[3]);
    rec.Unit = prim::Trim(fields[4]);
    return rec;
}

void Load_Constants(ConstantTable& table) {
    for (int i = 0; i < kConstantCount; ++i) table.ConstantText[i] = std::string(kRows[i]);
    for (int i = 0; i < kConstantCount; ++i) table.ConstantData[i] = Parse_Constant(table.ConstantText[i]);
}

}  // namespace Constants
