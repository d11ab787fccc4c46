// Nothing but the precompiled header.
int main()
{
}
