#!/usr/bin/python3
"""Writes the three data tables of the engine directory from public physical data.

    /usr/bin/python3 tools/make_tables.py [OUTDIR]      (default: examples/engine)

Needs Debian's python3-periodictable (apt-get install -y python3-periodictable), which packages the
NIST compilation of isotope masses and abundances, mean atomic masses and element densities.

isotopes.dat  a header line, then one tab-separated line per element Z = 1..92:
              name (with the Latin name in parentheses behind a blank where there is one), Z, then per
              isotope three fields: isotope token ("28Si"), mass in u, abundance in percent.
              At most seven isotopes, the most abundant ones, listed in order of mass number. Hydrogen
              lists 1H, 2H and 3H in that order (deuterium and tritium are looked up by place).
              Elements without a stable isotope list the isotope nearest their mean mass, abundance 0.
pscoef.dat    one line per element: Z, mass number and mass of the main isotope, mean atomic mass,
              mass density in g/cc, atomic density in 1e22 atoms/cc, then eight stopping coefficients.
              THE STOPPING COEFFICIENTS ARE SYNTHETIC PLACEHOLDERS (a smooth function of Z), not
              measured data: the front end never reads them, and no engine should compute with them.
compound.dat  one record per line in the comma-separated form: "name",n,"El",count,...,density.
"""
import os
import sys

import periodictable as pt

# The constant the front end uses between mass and atomic density: 1 u in grams times 1e22.
AMU_1E22 = 0.0166053886

LATIN = {
    11: "Natrium", 19: "Kalium", 26: "Ferrum", 29: "Cuprum", 47: "Argentum", 50: "Stannum",
    51: "Stibium", 74: "Wolfram", 79: "Aurum", 80: "Hydrargyrum", 82: "Plumbum",
}

# Densities (g/cc) the package leaves open: rounded handbook values (liquid radon; estimates for the
# rest, whose bulk solids have hardly been seen).
DENSITY_FALLBACK = {85: 6.4, 86: 4.4, 87: 1.87, 88: 5.5, 89: 10.07}

# A dozen common compounds: name, composition, mass density in g/cc (handbook values; SiO2 is
# amorphous silica, TiO2 rutile, Si3N4 amorphous). The parser's compound search starts at the second
# record, so the first is one that a layer hardly ever is.
COMPOUNDS = [
    ("H2O", [("H", 2), ("O", 1)], 1.0),
    ("SiO2", [("Si", 1), ("O", 2)], 2.20),
    ("Al2O3", [("Al", 2), ("O", 3)], 3.95),
    ("TiO2", [("Ti", 1), ("O", 2)], 4.23),
    ("Si3N4", [("Si", 3), ("N", 4)], 3.17),
    ("GaAs", [("Ga", 1), ("As", 1)], 5.32),
    ("AlAs", [("Al", 1), ("As", 1)], 3.76),
    ("InP", [("In", 1), ("P", 1)], 4.81),
    ("SiC", [("Si", 1), ("C", 1)], 3.21),
    ("ZnO", [("Zn", 1), ("O", 1)], 5.61),
    ("MgO", [("Mg", 1), ("O", 1)], 3.58),
    ("Ta2O5", [("Ta", 2), ("O", 5)], 8.20),
    ("HfO2", [("Hf", 1), ("O", 2)], 9.68),
    ("LiF", [("Li", 1), ("F", 1)], 2.635),
    ("CaF2", [("Ca", 1), ("F", 2)], 3.18),
]


def isotopes_of(el):
    natural = [i for i in el if i.abundance > 0]
    if el.number == 1:
        return [el[1], el[2], el[3]]
    if not natural:
        nearest = min((i for i in el), key=lambda i: abs(i.isotope - round(el.mass)))
        return [nearest]
    if len(natural) > 7:
        natural = sorted(natural, key=lambda i: -i.abundance)[:7]
    return sorted(natural, key=lambda i: i.isotope)


def fmt(x, digits):
    text = f"{x:.{digits}f}".rstrip("0")
    return text + "0" if text.endswith(".") else text


def main():
    out = sys.argv[1] if len(sys.argv) > 1 else os.path.join(os.path.dirname(__file__), "..", "examples", "engine")
    os.makedirs(out, exist_ok=True)
    iso_lines = ["Element\tZ\tIsotope\tMass (u)\tAbundance (%)\t..."]
    ps_lines = []
    for z in range(1, 93):
        el = pt.elements[z]
        isos = isotopes_of(el)
        name = el.name.capitalize().replace("Aluminum", "Aluminium").replace("Cesium", "Caesium")
        if z in LATIN:
            name += " (" + LATIN[z] + ")"
        fields = [name, str(z)]
        for i in isos:
            fields += [f"{i.isotope}{el.symbol}", fmt(i.mass, 10), fmt(i.abundance, 6)]
        iso_lines.append("\t".join(fields))

        main_iso = max(isos, key=lambda i: (i.abundance, -abs(i.isotope - el.mass)))
        if z == 1:
            main_iso = el[1]
        density = el.density if el.density is not None else DENSITY_FALLBACK[z]
        atomic = density / (el.mass * AMU_1E22)
        # Placeholder stopping coefficients: a smooth made-up function of Z, in the place and number
        # the engine's file has them. Not physics.
        synthetic = [0.5 + 0.01 * z, 1.0 + 0.02 * z, 2.0 + 0.005 * z, 100.0 + z, 0.1, 0.2, 0.3, 0.4]
        ps_lines.append("\t".join([str(z), str(main_iso.isotope), fmt(main_iso.mass, 10), fmt(el.mass, 6),
                                   fmt(density, 5), fmt(atomic, 6)] + [fmt(c, 4) for c in synthetic]))

    comp_lines = []
    for name, parts, rho in COMPOUNDS:
        items = [f'"{name}"', str(len(parts))]
        for sym, count in parts:
            items += [f'"{sym}"', str(count)]
        items.append(fmt(rho, 4))
        comp_lines.append(",".join(items))

    for fname, lines in (("isotopes.dat", iso_lines), ("pscoef.dat", ps_lines), ("compound.dat", comp_lines)):
        with open(os.path.join(out, fname), "w", newline="") as f:
            f.write("\r\n".join(lines) + "\r\n")


if __name__ == "__main__":
    main()
