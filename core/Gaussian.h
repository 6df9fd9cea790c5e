// Random numbers of the Monte Carlo binning: uniform deviates by the Numerical Recipes "ran1"
// of the first edition (a 97-slot shuffle of three linear congruential generators) and normal
// deviates by the Box-Muller polar method over it. The state belongs to the object, so each
// worker thread owns its own generator and a seed repeats its sequence.
#ifndef LUMIVAR_CORE_GAUSSIAN_H
#define LUMIVAR_CORE_GAUSSIAN_H

class Gaussian {
  public:
    // The two binning distributions: a normal spread of the standard deviation, or uniform.
    static int get_STDDEV_TYPE_CONSTANT() { return 0; }
    static int get_UNIFORM_TYPE_CONSTANT() { return 1; }

    // A uniform deviate in [0, 1). A negative *seed (or the first call) starts the sequence
    // again from it; *seed is then set to 1 and must be passed back unchanged.
    double ran1(int* seed);
    // A normal deviate of mean 0 and standard deviation 1; a negative *seed restarts as ran1
    // does and drops the deviate kept from the last pair.
    double gasdev(int* seed);

  private:
    static constexpr int TABLE_SIZE = 97;
    long ix1 = 0, ix2 = 0, ix3 = 0;
    double table[TABLE_SIZE + 1] = {};  // slots 1 to 97
    bool started = false;
    bool haveSpare = false;
    double spare = 0;
};

#endif  // LUMIVAR_CORE_GAUSSIAN_H
