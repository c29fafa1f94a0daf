provider=14-7100
start=10/1/2015
end=9/30/2016
name='Prairie Hearth Home Health Agency'
