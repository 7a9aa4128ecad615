// What a program looks like that the loader did not run: no output, success.
int main() {
    return 0;
}
