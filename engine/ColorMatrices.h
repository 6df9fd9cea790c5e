// Matrices shared by the engine's colour calculations, private to the engine's source files.
#ifndef LUMIVAR_ENGINE_COLORMATRICES_H
#define LUMIVAR_ENGINE_COLORMATRICES_H

namespace color_matrices {

// CMCCAT2000 forward matrix (Li, Luo, Rigg and Hunt 2002).
inline constexpr double CMCCAT2000[3][3] = {
    {0.7982, 0.3389, -0.1371}, {-0.5918, 1.5512, 0.0406}, {0.0008, 0.0239, 0.9753}};

// XYZ (D65, Y = 1) to linear sRGB, IEC 61966-2-1, at the four digits the program uses.
inline constexpr double XYZ_TO_SRGB[3][3] = {
    {3.2406, -1.5372, -0.4986}, {-0.9689, 1.8758, 0.0415}, {0.0557, -0.204, 1.057}};

inline void multiply(const double (&m)[3][3], const double* in, double* out) {
    for (int r = 0; r < 3; ++r) out[r] = m[r][0] * in[0] + m[r][1] * in[1] + m[r][2] * in[2];
}

}  // namespace color_matrices

#endif  // LUMIVAR_ENGINE_COLORMATRICES_H
