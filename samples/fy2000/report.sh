provider=14-7100
start=1/1/2000
end=12/31/2000
name='Prairie Hearth Home Health Agency'
