provider=45-7102
start=1/1/2000
end=12/31/2000
name='Court Square Home Care'
