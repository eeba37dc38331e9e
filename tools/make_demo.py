#!/usr/bin/env python3
"""Writes the demo working directory examples/demo/: a batch of three samples with RBS, ERDA, NRA and
PIXE spectra, links between associations, and a comments file.

All data are SYNTHETIC: smooth step-and-peak shapes with Poisson noise from a fixed seed, made to look
like spectra, not measured anywhere. Spectra are plain text, one "channel counts" pair per line.
Run from the repository root:  python3 tools/make_demo.py
"""
import math
import os
import random

OUT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "examples", "demo")
CHANNELS = 1024
rng = random.Random(20261123)


def poisson(lam):
    if lam <= 0:
        return 0
    if lam > 50:
        return max(0, int(round(rng.gauss(lam, math.sqrt(lam)))))
    limit, k, p = math.exp(-lam), 0, 1.0
    while True:
        p *= rng.random()
        if p <= limit:
            return k
        k += 1


def edge(ch, at, height, width=6.0):
    """A backscattering edge: a plateau below `at` falling off with a smooth error-function shoulder."""
    return height * 0.5 * math.erfc((ch - at) / width)


def peak(ch, at, area, sigma):
    return area / (sigma * math.sqrt(2 * math.pi)) * math.exp(-0.5 * ((ch - at) / sigma) ** 2)


def write_spectrum(name, shape):
    with open(os.path.join(OUT, name), "w", newline="\r\n") as f:
        for ch in range(CHANNELS):
            f.write(f"{ch} {poisson(shape(ch))}\n")


def rbs(si_edge, o_edge, film_top, film_bottom, scale):
    def shape(ch):
        substrate = edge(ch, si_edge - 40, 900 * scale) * (1 + 0.0008 * (si_edge - ch))
        film_si = edge(ch, si_edge, 420 * scale) - edge(ch, film_bottom, 420 * scale)
        oxygen = edge(ch, o_edge, 160 * scale) - edge(ch, o_edge - (film_top - film_bottom), 160 * scale)
        return max(0.0, substrate + film_si + oxygen + 2)
    return shape


def main():
    os.makedirs(OUT, exist_ok=True)
    # Sample 1: SiO2 on Si, two RBS detectors.
    write_spectrum("s1rbs165.dat", rbs(560, 330, 560, 520, 1.0))
    write_spectrum("s1rbs120.dat", rbs(548, 310, 548, 500, 0.7))
    # Sample 2: thicker oxide, RBS plus an ERDA hydrogen spectrum and an NRA spectrum.
    write_spectrum("s2rbs165.dat", rbs(560, 330, 560, 470, 1.0))
    write_spectrum("s2erda.dat", lambda ch: max(0.0, edge(ch, 300, 220) - edge(ch, 180, 200) + 1))
    write_spectrum("s2nra.dat", lambda ch: peak(ch, 712, 5200, 9) + peak(ch, 655, 1900, 11) + 0.5)
    # Sample 3: RBS at two angles and a PIXE spectrum (Si K, Ti K alpha/beta, Fe K).
    write_spectrum("s3rbs165.dat", rbs(560, 330, 560, 540, 1.1))
    write_spectrum("s3rbs120.dat", rbs(548, 310, 548, 530, 0.8))
    write_spectrum("s3pixe.dat", lambda ch: 40 * math.exp(-ch / 260.0) + peak(ch, 174, 9000, 6)
                   + peak(ch, 451, 30000, 8) + peak(ch, 493, 4200, 8) + peak(ch, 640, 2600, 9) + 1)

    batch = [
        "s1rbs165.dat  10.5  rbs165  sio2si  1  ",
        "s1rbs120.dat  10.5  rbs120",
        "s2rbs165.dat  12  rbs165  thickox  ",
        "s2erda.dat  4.25  erda30  (1)",
        "s2nra.dat  8  nra150",
        "s3rbs165.dat  9.75  rbs165  tio2si  ",
        "s3rbs120.dat  9.75  rbs120  [1]",
        "s3pixe.dat  9.75  pixe135",
    ]
    with open(os.path.join(OUT, "demo.spc"), "w", newline="\r\n") as f:
        f.write("\n".join(batch) + "\n")
    sep = "#" * 27
    comments = [
        "Demo batch: synthetic spectra for trying the front end.",
        "2 MeV 4He+ beam; RBS at 165 and 120 degrees, ERDA at 30 degrees, NRA and PIXE.",
        "Thin SiO2 on Si, about 100 nm.",
        "Thick oxide with hydrogen; the ERDA charge is linked to the RBS spectrum.",
        "TiO2 on Si with a trace of Fe; the 120 degree charge follows the 165 degree one.",
    ]
    with open(os.path.join(OUT, "demo.txt"), "w", newline="\r\n") as f:
        for c in comments:
            f.write(c + "\n" + sep + "\n")


if __name__ == "__main__":
    main()
